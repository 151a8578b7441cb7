// With WRAP_STYLE 2 continuation lines take WRAP_INDENT from the statement.
void f()
{
    total = alpha + beta + gamma + delta;
}
