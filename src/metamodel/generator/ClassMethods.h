// The member functions of a generated class, its definition class and its
// typed vector, each family built from the class's row of the schema.
#pragma once

#include "Method.h"
#include "Schema.h"

#include <string>
#include <vector>

namespace kel::gen {

// Constructors, assignment, clone, definition access and toConstVec.
Methods IdentityMethods(ClassDef const& cls);
// Typed accessors of the class's own properties and the property overrides.
Methods PropertyMethods(Schema const& schema, ClassDef const& cls);
// Accessors of the class's own compositions and associations.
Methods RelationMethods(Schema const& schema, ClassDef const& cls);
// asY for direct subclasses and getObjY for the classes below the composition targets.
Methods NavigationMethods(Schema const& schema, ClassDef const& cls);
// Constructor and overrides of XDefinition.
Methods DefinitionMethods(Schema const& schema, ClassDef const& cls);
// Members of ConstXVec.
Methods VectorMethods(Schema const& schema, ClassDef const& cls);

// The classes that getObjY is generated for, in first-seen order.
std::vector<std::string> ObjClasses(Schema const& schema, ClassDef const& cls);
// Every class that the generated code of `cls` names, besides `cls` itself.
std::vector<std::string> ReferencedClasses(Schema const& schema, ClassDef const& cls);

// The type of a property as a result and as a parameter.
std::string ResultType(PropertyTypeRow const& type);
std::string ParameterType(PropertyTypeRow const& type);
std::string VecName(std::string const& className);

} // namespace kel::gen
