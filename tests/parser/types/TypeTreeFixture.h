// Resolved syntax trees built by hand, for the type checker: every node that
// an error can name stands at a line and column of the file "t.kel", and every
// reference is bound as the resolver would bind it.
#pragma once

#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ConstructionSupport.h"
#include "metamodel/DeclarationConstructors.h"
#include "metamodel/ExpressionConstructors.h"
#include "metamodel/Factory.h"
#include "metamodel/ResolvedConstructors.h"
#include "metamodel/StatementConstructors.h"
#include "parser/types/TypeChecker.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace language::test {

using kel::OidVec;
using om::Oid;

// A construction helper of a binary operator.
using Construct = Oid (*)(om::ObjectModel&, Oid, Oid);

class TypeTreeFixture : public ::testing::Test {
protected:
    TypeTreeFixture() {
        kel::Root root(kel::NewCopy<kel::Root>(model));
        root.addToFiles(kel::NewNamed<kel::File>(model, "t.kel"));
        kel::Store(model, root);
        boolType = kel::GetBoolTypeDeclaration(model)->getOid();
        smallType = kel::constructIntTypeDeclaration(model, "Small", 0, 3);
        red = kel::constructEnumValueDeclaration(model, "red");
        colorType = kel::constructEnumTypeDeclaration(model, "Color", {red});
        msgType = kel::constructDataTypeDeclaration(model, "Msg", "$char*$");
    }

    template <class T> T const& find(Oid id) { return kel::Find<T>(model, id); }

    template <class T, class Change> Oid edit(Oid id, Change change) {
        T copy(find<T>(id));
        change(copy);
        return kel::Store(model, copy);
    }

    // The node stands at line:column; its span begins elsewhere, so that an
    // error shown at the begin of the span instead would be noticed.
    Oid at(Oid id, int line, int column) {
        return edit<kel::Location>(id, [&](kel::Location& copy) {
            copy.setLine(line);
            copy.setColumn(column);
            copy.setBeginLine(line);
            copy.setBeginColumn(column > 1 ? 1 : 99);
            copy.setEndLine(line);
            copy.setEndColumn(column + 1);
            copy.setFile(kel::GetFile(model, "t.kel"));
        });
    }

    template <class Reference> void bind(Reference const& reference, Oid declaration) {
        edit<Reference>(reference.getOid(),
                        [&](Reference& copy) { copy.setDeclaration(declaration); });
    }

    std::string nameOf(Oid type) { return find<kel::Named>(type).getName(); }

    // A variable or parameter whose type is bound.
    Oid variable(std::string const& name, Oid type, Oid initialValue = om::NULL_OID) {
        Oid id = kel::constructVariableDeclaration(model, nameOf(type), name, initialValue);
        bind(find<kel::VariableDeclaration>(id).getType(), type);
        return id;
    }
    Oid parameter(std::string const& name, Oid type) {
        Oid id = kel::constructFormalParameter(model, kel::pdirIn, nameOf(type), name);
        bind(find<kel::ParameterDeclaration>(id).getType(), type);
        return id;
    }

    // ---- Expressions at line:column.
    Oid use(Oid variable, int line, int column) {
        Oid id = model.createRecursive(kel::VariableExpression::ClassName)->getOid();
        bind(find<kel::VariableExpression>(id).getVariable(), variable);
        return at(id, line, column);
    }
    Oid integer(int line, int column) {
        return at(kel::constructIntConstantExpression(model, 1), line, column);
    }
    Oid boolean(int line, int column) {
        return at(kel::constructBoolConstantExpression(model, "true"), line, column);
    }
    Oid data(int line, int column) {
        return at(kel::constructDataExpression(model, "$x$"), line, column);
    }
    Oid color(int line, int column) {
        return at(kel::ConstructEnumConstantExpression(model, find<kel::EnumValueDeclaration>(red)),
                  line, column);
    }
    Oid unresolvedName(int line, int column) {
        return at(kel::constructNamedExpression(model, "nowhere", false, {}), line, column);
    }
    Oid binary(Construct construct, Oid left, Oid right, int line, int column) {
        return at(construct(model, left, right), line, column);
    }
    Oid negation(Oid operand, int line, int column) {
        return at(kel::constructNotExpression(model, operand), line, column);
    }
    // A call of a resolved function or an action of a resolved event.
    Oid call(Oid function, OidVec const& arguments, int line, int column) {
        Oid id = model.createRecursive(kel::FunctionCallExpression::ClassName)->getOid();
        edit<kel::FunctionCallExpression>(
            id, [&](kel::FunctionCallExpression& copy) { copy.addToArguments(arguments); });
        kel::FunctionReference const& reference =
            find<kel::FunctionCallExpression>(id).getFunction();
        edit<kel::FunctionReference>(reference.getOid(), [&](kel::FunctionReference& copy) {
            copy.setName(nameOf(function));
            copy.setDeclaration(function);
        });
        return at(id, line, column);
    }
    Oid action(Oid event, OidVec const& arguments, int line, int column) {
        Oid instance = kel::constructEventInstance(model, "", nameOf(event), true, arguments);
        bind(find<kel::EventInstance>(instance).getEvent(), event);
        Oid id = model.createRecursive(kel::ActionExpression::ClassName)->getOid();
        edit<kel::ActionExpression>(id, [&](kel::ActionExpression& copy) {
            copy.setEvent(find<kel::EventInstance>(instance));
        });
        return at(id, line, column);
    }
    Oid event(std::string const& name, std::string const& returnType, OidVec const& parameters) {
        Oid id = kel::constructEventDeclaration(model, kel::edirIn, returnType, name, parameters);
        bindReturnType<kel::EventDeclaration>(id);
        return id;
    }
    // A function whose body holds the statements.
    Oid function(std::string const& name, std::string const& returnType, OidVec const& parameters,
                 OidVec const& statements = {}) {
        Oid id = kel::constructFunctionDeclaration(model, returnType, name, parameters);
        bindReturnType<kel::FunctionDeclaration>(id);
        edit<kel::CompoundStatement>(
            find<kel::FunctionDeclaration>(id).getStatement().getOid(),
            [&](kel::CompoundStatement& copy) { copy.addToStatements(statements); });
        return id;
    }

    // ---- Checking.
    // The type's name, or "null" when the expression has no type.
    std::string typeOf(Oid expression, bool& ok) {
        kel::TypeDeclaration const* type =
            checker.tryGetAndCheckType(find<kel::Expression>(expression), ok);
        return type == nullptr ? "null" : type->getName();
    }
    bool checkStatement(Oid statement) {
        return checker.checkExpressionTypes(find<kel::BehaviourStatement>(statement));
    }
    // The reported errors, one "file:line:column: message" each.
    std::vector<std::string> errors() {
        std::ostringstream out;
        checker.printErrors(out);
        std::vector<std::string> lines;
        std::istringstream in(out.str());
        for (std::string line; std::getline(in, line);) {
            lines.push_back(line);
        }
        return lines;
    }

    kel::Factory factory;
    om::ObjectModel model{factory};
    Oid boolType = om::NULL_OID;
    Oid smallType = om::NULL_OID;
    Oid red = om::NULL_OID;
    Oid colorType = om::NULL_OID;
    Oid msgType = om::NULL_OID;
    TypeChecker checker{model};

private:
    // Binds the return type reference by its name among the fixture's types.
    template <class T> void bindReturnType(Oid id) {
        kel::TypeReference const* reference = find<T>(id).tryGetReturnType();
        if (reference == nullptr) {
            return;
        }
        for (Oid type : {boolType, smallType, colorType, msgType}) {
            if (nameOf(type) == reference->getName()) {
                bind(*reference, type);
            }
        }
    }
};

} // namespace language::test
