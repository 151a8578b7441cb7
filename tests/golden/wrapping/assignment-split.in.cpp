// "x =" stays and the right side wraps; "/=" does not split, "+" does.
void f()
{
    x = yankee + zulu + xray + whiskey12;
    x /= yankee + zulu + xray + whiskey12;
}
