// WS_BETWEEN_DD_ELEMENTS with a line break: one declarator a line.
int first,
    second,
    third;
