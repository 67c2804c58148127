// Nothing of its own: its target compiles the headers that all tests share.
