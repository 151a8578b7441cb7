// tw_property_doc: writes the reference of scheme options (docs/properties.md)
// from the property catalogue, to the file named as its one argument or to
// standard output. The build target property-doc runs it on docs/properties.md.
#include "KemptUI_PropertyReference.h"

#include <fstream>
#include <iostream>

int main(int argc, char** argv)
{
    if (argc > 2) {
        std::cerr << "usage: tw_property_doc [OUTPUT]\n";
        return 2;
    }
    if (argc == 1) {
        KemptUI::writePropertyReference(std::cout);
        return std::cout.flush() ? 0 : 1;
    }
    std::ofstream out(argv[1], std::ios_base::binary | std::ios_base::trunc);
    KemptUI::writePropertyReference(out);
    out.close();
    if (!out) {
        std::cerr << "tw_property_doc: cannot write " << argv[1] << '\n';
        return 1;
    }
    return 0;
}
