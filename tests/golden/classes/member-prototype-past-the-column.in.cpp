// ALIGN_CLASS_MEMBER_NAMES_LEFT: a statement the parser reads as a prototype behind a "{" on its line lies past the name column, and keeps a blank between its words.
class A {
  int f() const
    { return find_first_of(x, n); }
};
