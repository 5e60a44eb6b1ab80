inline int ownMonth() { return 8; }
