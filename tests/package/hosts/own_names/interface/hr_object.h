inline int ownHrObject() { return 2; }
