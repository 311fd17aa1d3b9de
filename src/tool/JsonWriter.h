// Writes the JSON of the sequence diagram straight into a text, in the
// document's one format: no indentation and no blanks, a comma and a line
// break between two members or elements, and nothing escaped. A long run's
// document is written as it is made, with no tree of values behind it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class JsonWriter {
public:
    explicit JsonWriter(std::string& text) : text(text) {}

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    // The key of the next value, inside an object.
    void key(std::string_view name);
    // A string between double quotes, its bytes as they are.
    void value(std::string_view string);
    void value(char const* string) { value(std::string_view(string)); }
    void value(std::int64_t number);

private:
    // The separator ahead of a member or element that is not its container's
    // first; none ahead of the value of a key.
    void beginItem();

    std::string& text;
    // Per open container, innermost last: whether it holds an item yet.
    std::vector<bool> filled;
    bool afterKey = false;
};
