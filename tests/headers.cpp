// Holds nothing: its target compiles the headers that all tests share.
