// A file of comments only: each comment is copied, and so is the end of the file.

/* a block
   of two lines */
// indented, at the top level with a left margin
