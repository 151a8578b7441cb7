// A fenced region whose column does not change passes with every character as it stands.
void f()
{
    // TW-FORMAT-OFF
    int   table[] = { 1,2,
			3,4 };
    // TW-FORMAT-ON
    run();
}
