// The progress and cancellation callback of a formatting run. The engine calls
// it with a format template holding one "%s" for the file name, which the
// callback fills in; returning false asks the run to stop. The base class
// ignores the text and returns true: it is the callback of a run that shows no
// progress.
#ifndef KEMPT_UPDATEFUNCTOR_H
#define KEMPT_UPDATEFUNCTOR_H

#include <string>

namespace Kempt {

class UpdateFunctor {
public:
    virtual ~UpdateFunctor();
    virtual bool operator()(const std::string& format);
};

} // namespace Kempt

#endif
