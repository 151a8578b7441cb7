// ALIGN_ENUM_INITIALIZERS: the "=" of every enumerator in one column.
enum Flags
{
    None        = 0,
    Read        = 1,
    ReadWrite   = 3,
    Everything  = 0xff
};
