// A marker followed by more words still opens and closes a region, for the marker is the start of the comment's text.
void f()
{
    /* TW-FORMAT-OFF: a table laid out by hand */
    if (a)      x = 1;
    else if (b) x = 2;
    else        x = 3;
    /* TW-FORMAT-ON again */
    if(a){x=1;}
}
