// A directive between enumerators keeps a line of its own.
enum Feature
{
    Basic,
#ifdef WITH_EXTRAS
    Extra,
#endif
    Last
};
