// An enum with its elements on one line fills the lines up to the margin.
enum Colours { blue, pink, yellow, green, orange, red, purple };
