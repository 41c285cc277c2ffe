#pragma once

namespace ParameterCollection {

// What a write does with a value the node does not accept.
enum ECorrection
{
    CorrectionNone = 0,   // refuse it with an exception
    CorrectionUp = 1,     // the next valid value above
    CorrectionDown = 2,   // the next valid value below
    CorrectionNearest = 3,
};

} // namespace ParameterCollection
