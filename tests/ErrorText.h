// The message of the OMException that an operation raises, for comparing with the expected text.
#pragma once

#include "om/OMException.h"

#include <string>

namespace test {

template <class Operation> std::string errorOf(Operation operation) {
    try {
        operation();
    } catch (om::OMException const& error) {
        return error.what();
    }
    return "no error";
}

} // namespace test
