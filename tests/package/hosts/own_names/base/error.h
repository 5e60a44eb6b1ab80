inline int ownError() { return 1; }
