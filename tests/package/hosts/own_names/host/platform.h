inline int ownPlatform() { return 4; }
