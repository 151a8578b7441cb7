// ALIGN_CLASS_MEMBER_NAMES_LEFT: a constructor prototype has no return type; its name stands in the column of the other member names.
class Queue
{
public:
                Queue();
                ~Queue();
    int         size;
    const char* name() const;
};
