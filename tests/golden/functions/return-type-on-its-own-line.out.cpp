// A break after the return type of a definition, as GNU has it; a "*" anchored to the name stays with the type.
char*
name(int id)
{
    return table[id];
}
static int
count()
{
    return n;
}
