// ALIGN_CLASS_MEMBER_NAMES_LEFT: data members and member prototypes of a class share one name column.
class Account {
public:
int id;
const char* owner;
double balance;
void deposit(double amount);
};
int outside;
