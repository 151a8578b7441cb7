// Control statements under K&R: the opening brace on the head's line, "} else {", case labels at the switch's column.
void f(int c)
{
    if (a) {
        x = 1;
    } else if (b) {
        x = 2;
    } else {
        x = 3;
    }
    if (a)
        b();
    else
        c();
    while (x < 10) {
        x++;
    }
    do {
        x--;
    } while (x > 0);
    for (int i = 0; i < n; ++i) {
        sum += i;
    }
    for (;;) {
    }
    switch (c) {
    case 1:
        x(); break;
    case 2:
        {
            y();
        } break;
    default:
        break;
    }
    try {
        run();
    } catch (const Error &e) {
        report(e);
    } catch (...) {
    }
    {
        z();
    }
}
