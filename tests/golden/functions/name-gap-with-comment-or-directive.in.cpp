class Control {
public:
    virtual void Enable
#ifdef HAS_THEME
    // Only one platform has a real implementation.
    (bool enable);
#else
    (bool) { }
#endif
};

void Apply // why the parameters stand apart
    (int level);

void Reset
    (int level);
