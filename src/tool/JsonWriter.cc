#include "tool/JsonWriter.h"

#include <charconv>

void JsonWriter::beginItem() {
    if (afterKey) {
        afterKey = false;
        return;
    }
    if (!filled.empty()) {
        if (filled.back()) {
            text += ",\n";
        }
        filled.back() = true;
    }
}

void JsonWriter::beginObject() {
    beginItem();
    text += '{';
    filled.push_back(false);
}

void JsonWriter::endObject() {
    filled.pop_back();
    text += '}';
}

void JsonWriter::beginArray() {
    beginItem();
    text += '[';
    filled.push_back(false);
}

void JsonWriter::endArray() {
    filled.pop_back();
    text += ']';
}

void JsonWriter::key(std::string_view name) {
    beginItem();
    text += '"';
    text += name;
    text += "\":";
    afterKey = true;
}

void JsonWriter::value(std::string_view string) {
    beginItem();
    text += '"';
    text += string;
    text += '"';
}

void JsonWriter::value(std::int64_t number) {
    beginItem();
    char digits[24];
    auto const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    text.append(digits, end);
}
