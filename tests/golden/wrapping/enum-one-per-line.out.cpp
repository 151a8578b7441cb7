// An enum whose elements stand one to a line is never wrapped.
enum Colours
{
    blue,
    pink,
    yellow,
    green,
    orange,
    red,
    purple
};
