// "int a(1);" takes the call rule for the gap before its initialiser, "int b = 1;" the operator rule.
int a  (1, 2);
int b=1;
