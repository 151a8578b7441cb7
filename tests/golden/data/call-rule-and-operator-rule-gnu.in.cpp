// The call rule under GNU: a blank in front of the parenthesis, as in a call.
int a  (1, 2);
int b=1;
