// try and catch: catch types pass as types (the anchors of "*" and "&"), "catch (...)" as it is.
void f()
{
    try{run();}catch(const std::exception &e){report(e);}
    catch (Error * e) { delete e; }
    catch( ... ){ throw; }
}
