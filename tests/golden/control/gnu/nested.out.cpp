// GNU braces nest: each pair two columns in from the statement it belongs to, whatever the depth.
void
f (int c)
{
  for (i = 0; i < n; i++)
    {
      if (a[i])
        {
          while (b)
            {
              b = g (b);
            }
        }
      else if (c)
        {
          x ();
        }
    }
  do
    {
    }
  while (x);
}
