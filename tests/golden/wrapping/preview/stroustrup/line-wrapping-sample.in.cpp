// The scheme editor's line-wrapping sample under Stroustrup, wrapped at 80 columns.
bool set_up_log_messages(const std::string& filename, const std::string& startup_msg, const std::string& run_msg)
{
if ((set_logging_filename(filename) != 0) || (log_err_msg(startup_msg, LOG_TRACE, 1) != 0) || (log_err_msg(run_msg, LOG_TRACE, 1) != 0)){return false;}
return true;
}

Address office = {"Tidewright Pty Ltd", "www.tidewright.example", "12 Harbour Street", "Seaview", "NSW", 2095, "Australia", "+61 2 9999 0101", "+61 2 9999 0102"};

void PrintAddress(const Address* a){
cout << a->name << '\n' << a->website << '\n' << a->street << '\n' << a->suburb << '\n' << a->state << '\n' << a->postcode << '\n' << a->country << '\n';
}

enum Colours{blue,pink,yellow,green,orange,red,purple,magenta,violet,peach,aquamarine};

class Test:public virtual classA,private virtual classB,virtual classC,public virtual classD{};

Person(const std::string& firstName,const std::string& lastName,eGender sexOfPerson,const Date& dateOfBirth):m_FirstName(firstName),m_LastName(lastName),m_Sex(sexOfPerson),m_DateOfBirth(dateOfBirth){}
