// A class key inside a macro, packs and comparisons in base clauses, and `<` in a declaration-level call.
ALIGNED16(struct) A : public B
    {
    int x;
    };
template <class... Ts>
struct C : Ts..., D<(N> 0) >
    {
    };
static_assert(N < 200, "too big");
int f(int  y)
    {
    return  y;
    }
