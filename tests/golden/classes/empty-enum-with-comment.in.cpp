// An empty enum with a comment goes through the block rule: "{", break, comment, break, "}".
enum Empty { /* nothing yet */ };
