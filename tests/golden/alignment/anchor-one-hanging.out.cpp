// ASTERISK_ANCHOR 1 and HANGING_ASTERISK with aligned prototypes: the "*" one column left of the names.
int            *first();
long            second();
const char     *third();
