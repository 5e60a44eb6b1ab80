inline int ownCurrency() { return 32; }
