// switch: case labels by INDENT_CS_CASE_LABELS, the statements behind them by INDENT_CS_CASE_CONTENT, both from the switch's column (the default scheme puts labels four columns in and statements eight); a statement behind a label goes on a line of its own.
void f()
{
    switch(c){
    case 1: x(); break;
        case 2:
        case 3:
            {
                y();
            }
            break;
    case 4: // four
        z(); break;
    default: w();
    }
}
