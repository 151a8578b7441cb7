// A comment that runs well past the right margin is never wrapped.
int x = 1; // a trailing comment that runs well past the margin
/* a block comment that also runs well past the right margin */
