// Three levels of nesting: a namespace holding a class with a nested class, a nested if/else, an unbraced for body and a switch.
namespace shapes {
class Canvas {
public:
class Layer {
public:
int depth;
};
void draw(int n);
};
}

void shapes::Canvas::draw(int n)
{
if (n > 0) {
if (n > 10) {
n = 10;
} else {
n++;
}
} else {
n = 0;
}
for (int i = 0; i < n; ++i)
paint(i);
switch (n) {
case 0:
clear();
break;
case 1:
dot();
break;
default:
fill(n);
}
}
