inline int ownDate() { return 16; }
