// An extern "C" block under GNU.
extern "C"
{
  int open_file (const char *name);
  extern int errno_value;
}
extern "C" int single (void);
