// Enumerators one a line at the content indent, spaced as a list.
enum Colour{Red=1,Green ,Blue=10};
enum class Mode : unsigned char { Off, On };
