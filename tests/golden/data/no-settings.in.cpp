// "int a, b = 2;" without any setting: all of it passes as it stands.
int  a ,b=2 ;
const char*   name;
