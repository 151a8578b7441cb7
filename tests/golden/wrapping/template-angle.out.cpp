// A "<" of a template-id is no break point; a comparison is.
void f()
{
    ok = lookup<Key, Value>(table) <
         limit;
}
