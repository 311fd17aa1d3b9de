// A node of the tree of name spaces: the names declared at one place of the source.
#pragma once

#include "om/Oid.h"

#include <initializer_list>
#include <map>
#include <string>

namespace language {

// One declared name per entry, in name order.
using SymbolTable = std::map<std::string, om::Oid>;

// One line per entry on the log stream: four blanks, name, ": ", id.
void printSymbolTable(SymbolTable const& table);

class Scope {
public:
    Scope() = default;
    // Also the copy constructor: a copy keeps the tables of its subclass and
    // has the scope it was copied from as its parent.
    Scope(Scope const& parent) : m_parent(&parent) {}
    Scope& operator=(Scope const&) = delete;
    virtual ~Scope() = default;

    // The id of `name` in this scope alone, 0 if it has none.
    virtual om::Oid findName(std::string const& name) const = 0;
    // The kind of `name` in this scope alone, empty if it has none.
    virtual std::string getType(std::string const& name) const = 0;
    // The header and every table, on the log stream.
    virtual void print() const = 0;

    Scope const* parent() const { return m_parent; }

protected:
    // A table with the word that names the kind of its entries.
    struct KindTable {
        char const* kind;
        SymbolTable const& table;
    };
    // A table with the label that print writes above it.
    struct LabelledTable {
        char const* label;
        SymbolTable const& table;
    };

    static om::Oid findFirst(std::initializer_list<KindTable> tables, std::string const& name);
    static std::string kindOfFirst(std::initializer_list<KindTable> tables,
                                   std::string const& name);
    static void printTables(char const* header, std::initializer_list<LabelledTable> tables);

private:
    Scope const* m_parent = nullptr;
};

} // namespace language
