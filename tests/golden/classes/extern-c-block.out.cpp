// An extern "C" block is laid out with the global brace settings.
extern "C"
{
    int open_file(const char* name);
    extern int errno_value;
}
extern "C" int single(void);
