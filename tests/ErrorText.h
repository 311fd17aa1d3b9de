// The message of the exception that an operation raises, an OMException unless
// told otherwise, for comparing with the expected text.
#pragma once

#include "om/OMException.h"

#include <string>

namespace test {

template <class Error = om::OMException, class Operation>
std::string errorOf(Operation operation) {
    try {
        operation();
    } catch (Error const& error) {
        return error.what();
    }
    return "no error";
}

} // namespace test
