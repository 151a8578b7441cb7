// A long for head breaks after each ";"; a clause still too long goes down the ladder.
void f()
{
    for (int index = 0; index < count; ++index)
        g(index);
    for (i = 0; i < firstLimit + secondLimit + third; ++i)
        g(i);
}
