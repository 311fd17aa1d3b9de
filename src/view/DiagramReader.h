// Reads the JSON document that kel-trace prints into a Diagram, and refuses
// what is no diagram with a message that names the element at fault.
#pragma once

#include "view/Diagram.h"

#include <istream>
#include <stdexcept>
#include <string>

namespace view {

// A document that is not a diagram; what() is the message for the user.
class DiagramError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Reads the whole stream; throws DiagramError on bad JSON or a bad element.
Diagram readDiagram(std::istream& in);

// The same, from text.
Diagram readDiagram(std::string const& text);

} // namespace view
