// Small syntax trees for the resolver tests, built the way the parser builds
// them, each piece placed at a line and column of the file "t.kel".
#pragma once

#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ConstructionSupport.h"
#include "metamodel/DeclarationConstructors.h"
#include "metamodel/ExpressionConstructors.h"
#include "metamodel/Factory.h"
#include "metamodel/Kel.h"
#include "metamodel/StatementConstructors.h"
#include "om/AsType.h"
#include "om/ObjectModel.h"
#include "parser/Resolver.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace language::test {

using Ids = std::vector<om::Oid>;
using Lines = std::vector<std::string>;

class ResolverFixture : public ::testing::Test {
protected:
    ResolverFixture() {
        auto const& root = om::AsType<kel::Root>(*model.createRecursive(kel::Root::ClassName));
        om::Oid file = kel::NewNamed<kel::File>(model, "t.kel");
        kel::Root copy(root);
        copy.addToFiles(file);
        model.update(copy);
        m_file = file;
        files.push_back(&get<kel::File>(file));
        m_default = kel::GetDefaultNamespace(model)->getOid();
    }

    // Places every object of the tree that has no position yet.
    om::Oid at(om::Oid id, int line, int column) {
        for (om::Object const* object : model.getTreeVec(id)) {
            auto const* located = dynamic_cast<kel::Location const*>(object);
            if (located == nullptr || located->hasFile()) {
                continue;
            }
            std::unique_ptr<om::Object> copy = object->clone();
            auto& location = dynamic_cast<kel::Location&>(*copy);
            location.setLine(line);
            location.setColumn(column);
            location.setBeginLine(line);
            location.setBeginColumn(column);
            location.setEndLine(line);
            location.setEndColumn(column + 1);
            location.setFile(m_file);
            model.update(*copy);
        }
        return id;
    }

    // Adds declarations to the default namespace, or to `space`.
    void declare(Ids const& ids) { declareIn(m_default, ids); }
    void declareIn(om::Oid space, Ids const& ids) {
        kel::Namespace copy(get<kel::Namespace>(space));
        for (om::Oid id : ids) {
            om::Object const& object = *model.find(id);
            if (dynamic_cast<kel::TypeDeclaration const*>(&object) != nullptr) {
                copy.addToTypes(id);
            } else if (dynamic_cast<kel::Namespace const*>(&object) != nullptr) {
                copy.addToNamespaces(id);
            } else {
                copy.addToModels(id);
            }
        }
        model.update(copy);
    }
    om::Oid space(std::string const& name, Ids const& ids) {
        om::Oid id = kel::NewNamed<kel::Namespace>(model, name);
        declareIn(id, ids);
        return id;
    }

    om::Oid enumType(std::string const& name, std::vector<std::string> const& values, int line) {
        Ids ids;
        for (std::size_t index = 0; index < values.size(); ++index) {
            ids.push_back(at(kel::constructEnumValueDeclaration(model, values[index]), line,
                             20 + 2 * static_cast<int>(index)));
        }
        return at(kel::constructEnumTypeDeclaration(model, name, ids), line, 1);
    }

    // An interface with types and events, and a behaviour made by behaviour().
    om::Oid interface(std::string const& name, Ids const& members, om::Oid behaviourId, int line) {
        om::Oid id = kel::constructInterfaceDeclaration(model, name, behaviourId);
        kel::InterfaceDeclaration copy(get<kel::InterfaceDeclaration>(id));
        for (om::Oid member : members) {
            if (dynamic_cast<kel::TypeDeclaration const*>(model.find(member)) != nullptr) {
                copy.addToTypes(member);
            } else {
                copy.addToEvents(member);
            }
        }
        model.update(copy);
        return at(id, line, 1);
    }

    om::Oid event(std::string const& name, Ids const& parameters, int line,
                  std::string const& returnType = "void") {
        return at(kel::constructEventDeclaration(model, kel::edirIn, returnType, name, parameters),
                  line, 1);
    }
    om::Oid parameter(std::string const& type, std::string const& name, int line, int column) {
        return at(kel::constructFormalParameter(model, kel::pdirIn, type, name), line, column);
    }

    // A behaviour with declarations (types, variables, functions, internals) and statements.
    om::Oid behaviour(Ids const& declarations, Ids const& statements) {
        om::Oid id = kel::constructBehaviour(model, "");
        kel::Behaviour copy(get<kel::Behaviour>(id));
        for (om::Oid declaration : declarations) {
            om::Object const& object = *model.find(declaration);
            if (dynamic_cast<kel::TypeDeclaration const*>(&object) != nullptr) {
                copy.addToTypes(declaration);
            } else if (dynamic_cast<kel::InternalDeclaration const*>(&object) != nullptr) {
                copy.addToInternals(declaration);
            } else if (dynamic_cast<kel::FunctionDeclaration const*>(&object) != nullptr) {
                copy.addToFunctions(declaration);
            } else {
                copy.addToVariables(declaration);
            }
        }
        copy.setStatement(get<kel::CompoundStatement>(block(statements, 0)));
        model.update(copy);
        return id;
    }
    om::Oid block(Ids const& statements, int line) {
        return at(kel::constructCompoundBehaviourStatement(model, statements), line, 1);
    }

    om::Oid component(std::string const& name, Ids const& ports, om::Oid behaviourId, int line,
                      om::Oid systemId = om::NULL_OID) {
        return at(kel::constructComponentDeclaration(model, name, ports, behaviourId, systemId),
                  line, 1);
    }
    om::Oid port(std::string const& interfaceName, std::string const& name, int line) {
        return at(kel::constructPortDeclaration(model, interfaceName, name, kel::idirProvided,
                                                false, false),
                  line, 1);
    }

    om::Oid variable(std::string const& type, std::string const& name, om::Oid value, int line) {
        return at(kel::constructVariableDeclaration(model, type, name, value), line, 1);
    }
    om::Oid name(std::string const& text, int line, int column) {
        return at(kel::constructNamedExpression(model, text, false, {}), line, column);
    }
    om::Oid call(std::string const& text, Ids const& arguments, int line, int column) {
        return at(kel::constructNamedExpression(model, text, true, arguments), line, column);
    }
    om::Oid number(int value, int line) {
        return at(kel::constructIntConstantExpression(model, value), line, 1);
    }
    om::Oid nameStatement(std::string const& text, bool parentheses, Ids const& arguments, int line,
                          int column) {
        return at(kel::constructNameStatement(model, text, parentheses, arguments), line, column);
    }
    om::Oid trigger(std::string const& portName, std::string const& eventName, bool parentheses,
                    Ids const& arguments, int line, int column) {
        return at(kel::constructEventInstance(model, portName, eventName, parentheses, arguments),
                  line, column);
    }
    om::Oid on(Ids const& triggers, om::Oid statement, int line) {
        return at(kel::constructOnEventStatement(model, triggers, statement), line, 1);
    }
    om::Oid assign(std::string const& variableName, om::Oid value, int line) {
        return at(kel::constructAssignmentBehaviourStatement(model, variableName, value), line, 1);
    }

    // Runs the resolver; the errors as "file:line:column: message" lines.
    Lines resolve() {
        Resolver resolver(model, &files);
        succeeded = resolver.resolveAllReferences();
        std::ostringstream out;
        resolver.printErrors(out);
        Lines lines;
        std::istringstream in(out.str());
        for (std::string line; std::getline(in, line);) {
            lines.push_back(line);
        }
        return lines;
    }

    template <class T> T const& get(om::Oid id) const { return om::AsType<T>(*model.find(id)); }

    kel::Factory factory;
    om::ObjectModel model{factory};
    std::vector<kel::File const*> files;
    bool succeeded = false;

private:
    om::Oid m_file = om::NULL_OID;
    om::Oid m_default = om::NULL_OID;
};

} // namespace language::test
