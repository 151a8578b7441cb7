// Control statements under GNU: braces on a line of their own two columns in, content two further, "else" on its own line.
void
f (int c)
{
  if (a)
    {
      x = 1;
    }
  else if (b)
    {
      x = 2;
    }
  else
    {
      x = 3;
    }
  if (a)
    b ();
  else
    c ();
  while (x < 10)
    {
      x++;
    }
  do
    {
      x--;
    }
  while (x > 0);
  for (int i = 0; i < n; ++i)
    {
      sum += i;
    }
  for (;;)
    {
    }
  switch (c)
    {
    case 1:
      x (); break;
    case 2:
      {
        y ();
      } break;
    default:
      break;
    }
  try
    {
      run ();
    }
  catch (const Error &e)
    {
      report (e);
    }
  catch (...)
    {
    }
  {
    z ();
  }
}
