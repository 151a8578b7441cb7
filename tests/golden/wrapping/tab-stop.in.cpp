// A tab counts up to the next tab stop: 35 characters, 42 columns.
void f()
{
	total = alpha + beta + gamma + ab;
}
