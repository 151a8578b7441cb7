// A small sample for `make run`, written carelessly on purpose: a class, a
// namespace, an enum, data, control statements, comments and directives, so
// that formatting it shows what a scheme does.
#include <iostream>
#include <string>
#include <vector>

namespace sample
{
    const int DEFAULT_QUANTITY = 1;   // used when none is given
    static const char *const NAMES[] = {"shell", "tide", "reef"};

    struct Counted
    {
        virtual ~Counted()
        {
        }
    };

    class Inventory : public Counted
    {
    public:
        explicit Inventory(std::string owner) : m_owner(owner), m_count(0)
        {
        }

        void add(const std::string& item, int quantity = DEFAULT_QUANTITY)
        {
            for (int i = 0; i < quantity; ++i)
                m_items.push_back(item);
            m_count += quantity;
        }

        int count()const
        {
            return m_count;
        }
    private:
        std::string m_owner;
        std::vector<std::string> m_items;
        int m_count;
    };

    enum Colour
    {
        RED,
        GREEN = 2,
        BLUE
    };
}   // namespace sample

int main(int argc, char* argv[])
{
    sample::Inventory inv("tide");
    if (argc > 1)
        inv.add(argv[1], 2);
    else
    {
        inv.add(sample::NAMES[0]);
    }

    switch (inv.count())
    {
        case 0:
            std::cout << "empty\n";break;
        default:
            std::cout << inv.count() << " items\n";
    }
    try
    {
        inv.add("reef");
    }
    catch (const std::exception& e)
    {
        std::cerr << e.what() << '\n';return 1;
    }
    int n = 0;
    while (n < 3)
    {
        ++n;
    }
    do
    {
        --n;
    }
    while (n > 0);
    return 0;
}
