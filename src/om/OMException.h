// The one error type of the object model framework.
#pragma once

#include <stdexcept>
#include <string>

namespace om {

// Derives virtually from std::runtime_error so that a handler for it, or for
// std::exception, catches every framework error; the message is what() gives.
class OMException : public virtual std::runtime_error {
public:
    explicit OMException(std::string const& message) : std::runtime_error(message) {}
};

} // namespace om
