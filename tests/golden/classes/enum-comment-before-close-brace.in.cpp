// A "//" comment behind the last enumerator: the closing brace goes on the next line, with no blank line between.
enum Level { Low, High // the last one
};
enum Other { One,
  Two, // trailing comma
};
