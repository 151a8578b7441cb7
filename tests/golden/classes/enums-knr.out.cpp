// Enumerators under K&R.
enum Colour {
    Red = 1,
    Green,
    Blue = 10
};
enum class Mode : unsigned char {
    Off,
    On
};
