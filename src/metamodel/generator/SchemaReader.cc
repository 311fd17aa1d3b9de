#include "SchemaReader.h"

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace kel::gen {
namespace {

std::vector<std::string> Words(std::string const& line) {
    std::istringstream in(line);
    std::vector<std::string> words;
    for (std::string word; in >> word;) {
        words.push_back(word);
    }
    return words;
}

void RequireCount(std::vector<std::string> const& words, std::size_t count) {
    if (words.size() != count) {
        throw std::runtime_error("expected " + std::to_string(count) + " words");
    }
}

std::uint64_t Bound(std::string const& text) { return text == "*" ? 0 : std::stoull(text); }

PropertyTypeRow ReadPropertyType(std::vector<std::string> const& words) {
    RequireCount(words, 7);
    return {std::stoi(words[1]), words[2], words[3], words[4], words[5], words[6] == "ref"};
}

Enumeration ReadEnumeration(std::vector<std::string> const& words) {
    if (words.size() < 3) {
        throw std::runtime_error("an enumeration needs a name and enumerators");
    }
    return {words[1], {words.begin() + 2, words.end()}};
}

ClassDef ReadClass(Schema const& schema, std::vector<std::string> const& words) {
    RequireCount(words, 3);
    if (words[2] != "om::Object") {
        schema.getClass(words[2]); // a base is defined before its subclasses
    }
    return {words[1], words[2], {}};
}

Member ReadMember(Schema const& schema, std::vector<std::string> const& words) {
    if (schema.classes.empty()) {
        throw std::runtime_error("a member before the first class");
    }
    if (words[0] == "property") {
        RequireCount(words, 4);
        schema.getPropertyType(words[2]);
        return {MemberKind::Property, words[1], words[2], words[3], 0, 0};
    }
    RequireCount(words, 5);
    auto const kind = words[0] == "composition" ? MemberKind::Composition : MemberKind::Association;
    return {kind, words[1], words[2], {}, Bound(words[3]), Bound(words[4])};
}

void ReadLine(Schema& schema, std::string const& line) {
    auto const words = Words(line);
    if (words.empty() || words[0].front() == '#') {
        return;
    }
    auto const& keyword = words[0];
    if (keyword == "proptype") {
        schema.propertyTypes.push_back(ReadPropertyType(words));
    } else if (keyword == "enum") {
        schema.enumerations.push_back(ReadEnumeration(words));
    } else if (keyword == "class") {
        schema.classes.push_back(ReadClass(schema, words));
    } else if (keyword == "property" || keyword == "composition" || keyword == "association") {
        schema.classes.back().members.push_back(ReadMember(schema, words));
    } else {
        throw std::runtime_error("unknown keyword " + keyword);
    }
}

void CheckTargets(Schema const& schema) {
    for (auto const& cls : schema.classes) {
        for (auto const& member : cls.members) {
            if (!member.isProperty()) {
                schema.getClass(member.type);
            }
        }
    }
}

} // namespace

Schema ReadSchema(std::istream& in) {
    Schema schema;
    int lineNumber = 0;
    for (std::string line; std::getline(in, line);) {
        ++lineNumber;
        try {
            ReadLine(schema, line);
        } catch (std::exception const& error) {
            throw std::runtime_error("line " + std::to_string(lineNumber) + ": " + error.what());
        }
    }
    CheckTargets(schema);
    return schema;
}

} // namespace kel::gen
