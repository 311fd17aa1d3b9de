#include "parser/resolve/Scope.h"

#include <iostream>

namespace language {

void printSymbolTable(SymbolTable const& table) {
    for (auto const& [name, id] : table) {
        std::clog << "    " << name << ": " << id << std::endl;
    }
}

om::Oid Scope::findFirst(std::initializer_list<KindTable> tables, std::string const& name) {
    for (KindTable const& entry : tables) {
        auto found = entry.table.find(name);
        if (found != entry.table.end()) {
            return found->second;
        }
    }
    return om::NULL_OID;
}

std::string Scope::kindOfFirst(std::initializer_list<KindTable> tables, std::string const& name) {
    for (KindTable const& entry : tables) {
        if (entry.table.count(name) != 0) {
            return entry.kind;
        }
    }
    return "";
}

void Scope::printTables(char const* header, std::initializer_list<LabelledTable> tables) {
    std::clog << header << std::endl;
    for (LabelledTable const& entry : tables) {
        std::clog << entry.label << std::endl;
        printSymbolTable(entry.table);
    }
}

} // namespace language
