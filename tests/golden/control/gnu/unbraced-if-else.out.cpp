// "if (a) b; else c;" under GNU: the statements on lines of their own, "else" on its own line.
void
f ()
{
  if (a)
    b ();
  else
    c ();
  for (;;)
    if (done ())
      break;
}
