// A prototype with a comment between return type and name is never aligned.
VeryLongName    first();
int /* the count */ second();
int             third();
