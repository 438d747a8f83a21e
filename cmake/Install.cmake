# filled in by the install rules
