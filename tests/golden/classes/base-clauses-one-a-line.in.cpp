// ALIGN_BASE_CLAUSES_LEFT: one base a line, each under the first.
class Widget : public Base, private Helper<int, long>,public virtual Observer {
};
