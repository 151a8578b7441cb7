// A small sample for `make run`: a class, a function, control statements,
// comments and directives, laid out by hand.
#include <iostream>
#include <string>
#include <vector>

namespace sample {

class Inventory
{
public:
    explicit Inventory(std::string owner) : m_owner(owner), m_count(0) {}

    void add(const std::string& item, int quantity = 1)
    {
        for (int i = 0; i < quantity; ++i)
            m_items.push_back(item);
        m_count += quantity;
    }

    int count() const { return m_count; }

private:
    std::string m_owner;
    std::vector<std::string> m_items;
    int m_count;
};

enum Colour { RED, GREEN = 2, BLUE };

} // namespace sample

int main(int argc, char* argv[])
{
    sample::Inventory inv("tide");
    if (argc > 1)
        inv.add(argv[1], 2);
    else
    {
        inv.add("shell");
    }

    switch (inv.count())
    {
        case 0:
            std::cout << "empty\n";
            break;
        default:
            std::cout << inv.count() << " items\n";
    }
    return 0;
}
