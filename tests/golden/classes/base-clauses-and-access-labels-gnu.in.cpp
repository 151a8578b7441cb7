// Base clauses spaced, access labels at the class's column, members indented (GNU).
class Shape:public Drawable ,  protected virtual Named{
public :
int sides;
  protected:
      void draw( ) ;
private:
    // the cache
    mutable int   cache;
};
