#include "parser/grammar/Parser.h"

#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ConstructionSupport.h"
#include "metamodel/DeclarationConstructors.h"

namespace language {

bool Parser::skipsComponentsOnly() const {
    return m_imported == ImportedComponents && !m_fullImports;
}

bool Parser::skipsImported() const { return m_imported != NotImported && !m_fullImports; }

bool Parser::marksImported() const { return m_imported != NotImported || m_inImported; }

void Parser::drop(om::Oid id) { m_model.destroyRecursive(id); }

void Parser::reportCompoundName(kel::Namespace const& misplaced) {
    error(getLocation(misplaced), "syntax error, compound name not allowed here");
    drop(misplaced.getOid());
}

template <class MakeOne> om::Oid Parser::constructNested(L const& at, Names const& names,
                                                         Container container,
                                                         MakeOne const& makeOne) {
    if (names.front().name.empty()) {
        error(at, "syntax error, name cannot start with '.'");
    }
    if (names.size() == 1) {
        return makeOne(names.front());
    }
    auto outer = kel::NewObject<kel::Namespace>(m_model);
    setNameAndLocation(outer, names.front());
    om::Oid inner = constructNested(at, tail(names), container, makeOne);
    Container kind = names.size() > 2 ? Container::Namespaces : container;
    if (kind == Container::Namespaces) {
        outer.addToNamespaces(inner);
    } else if (kind == Container::Types) {
        outer.addToTypes(inner);
    } else {
        outer.addToModels(inner);
    }
    return kel::Insert(m_model, std::move(outer));
}

void Parser::fileDeclarations(kel::Namespace& container, Oids const& declarations) {
    // Sorted first and added once per kind: each addition copies the whole list.
    Oids namespaces, types, models, natives;
    for (om::Oid id : declarations) {
        om::Object const* object = m_model.find(id);
        if (dynamic_cast<kel::Namespace const*>(object) != nullptr) {
            namespaces.push_back(id);
        } else if (dynamic_cast<kel::TypeDeclaration const*>(object) != nullptr) {
            types.push_back(id);
        } else if (dynamic_cast<kel::ModelDeclaration const*>(object) != nullptr) {
            models.push_back(id);
        } else if (dynamic_cast<kel::NativeStatement const*>(object) != nullptr) {
            natives.push_back(id);
        }
    }
    container.addToNamespaces(namespaces);
    container.addToTypes(types);
    container.addToModels(models);
    container.addToNativeStatements(natives);
}

om::Oid Parser::constructAllTypesAndModels(Oids const& declarations) {
    kel::Namespace top(*kel::GetDefaultNamespace(m_model));
    fileDeclarations(top, declarations);
    return kel::Store(m_model, top);
}

om::Oid Parser::constructNativeStatement(L const& b, L const& e, L const& a,
                                         std::string const& text) {
    auto statement = kel::NewObject<kel::NativeStatement>(m_model);
    statement.setValue(text);
    setLocation(statement, b, e, a);
    return kel::Insert(m_model, std::move(statement));
}

om::Oid Parser::constructNamespaceDeclaration(L const&, L const&, L const& a, Names const& names,
                                              Oids const& declarations) {
    return constructNested(a, names, Container::Namespaces, [&](Name const& name) {
        auto space = kel::NewObject<kel::Namespace>(m_model);
        setNameAndLocation(space, name);
        fileDeclarations(space, declarations);
        return kel::Insert(m_model, std::move(space));
    });
}

om::Oid Parser::constructEnumTypeDeclaration(L const& b, L const& e, L const& a, Names const& names,
                                             Oids const& values) {
    return constructNested(a, names, Container::Types, [&](Name const& name) {
        return updateLocation(kel::constructEnumTypeDeclaration(m_model, name.name, values), b, e,
                              a);
    });
}

om::Oid Parser::constructIntTypeDeclaration(L const& b, L const& e, L const& a, Names const& names,
                                            std::int32_t lower, std::int32_t upper) {
    return constructNested(a, names, Container::Types, [&](Name const& name) {
        return updateLocation(kel::constructIntTypeDeclaration(m_model, name.name, lower, upper), b,
                              e, a);
    });
}

om::Oid Parser::constructDataTypeDeclaration(L const& b, L const& e, L const& a, Names const& names,
                                             std::string const& data) {
    return constructNested(a, names, Container::Types, [&](Name const& name) {
        return updateLocation(kel::constructDataTypeDeclaration(m_model, name.name, data), b, e, a);
    });
}

om::Oid Parser::constructEnumValueDeclaration(L const& b, L const& e, L const& a,
                                              Name const& name) {
    return updateLocation(kel::constructEnumValueDeclaration(m_model, name.name), b, e, a);
}

om::Oid Parser::constructInterfaceDeclaration(L const& b, L const& e, L const& a,
                                              Names const& names, Oids const& declarations,
                                              om::Oid behaviour) {
    return constructNested(a, names, Container::Models, [&](Name const& name) {
        kel::InterfaceDeclaration interface(kel::Find<kel::InterfaceDeclaration>(
            m_model, kel::constructInterfaceDeclaration(m_model, name.name, behaviour)));
        for (om::Oid id : declarations) {
            om::Object const* object = m_model.find(id);
            if (auto const* misplaced = dynamic_cast<kel::Namespace const*>(object)) {
                reportCompoundName(*misplaced);
            } else if (dynamic_cast<kel::TypeDeclaration const*>(object) != nullptr) {
                interface.addToTypes(id);
            } else if (dynamic_cast<kel::EventDeclaration const*>(object) != nullptr) {
                interface.addToEvents(id);
            }
        }
        if (marksImported()) {
            interface.setImported(true);
        }
        m_foreign = true;
        setLocation(interface, b, e, a);
        return kel::Store(m_model, interface);
    });
}

om::Oid Parser::constructComponentDeclaration(L const& b, L const& e, L const& a,
                                              Names const& names, Oids const& ports,
                                              om::Oid behaviour, om::Oid system) {
    return constructNested(a, names, Container::Models, [&](Name const& name) {
        if (behaviour != om::NULL_OID && system != om::NULL_OID) {
            error(a, "syntax error, component cannot have both behaviour and system clause");
        }
        om::Oid kept = behaviour;
        if ((m_imported == ImportedComponents || m_inImported) && !m_fullImports &&
            behaviour != om::NULL_OID) {
            drop(behaviour);
            kept = om::NULL_OID;
        }
        kel::ComponentDeclaration component(kel::Find<kel::ComponentDeclaration>(
            m_model, kel::constructComponentDeclaration(m_model, name.name, ports, kept, system)));
        if (marksImported()) {
            component.setImported(true);
        }
        component.setForeign(m_foreign);
        m_foreign = true;
        setLocation(component, b, e, a);
        return kel::Store(m_model, component);
    });
}

om::Oid Parser::constructEventDeclaration(L const& b, L const& e, L const& a,
                                          kel::EventDirection direction, Names const& type,
                                          Name const& name, Oids const& parameters) {
    om::Oid id = kel::constructEventDeclaration(m_model, direction, concatNameIds(type), name.name,
                                                parameters);
    auto const& event = kel::Find<kel::EventDeclaration>(m_model, id);
    if (event.hasReturnType()) {
        updateLocation(event.getReturnTypeOid(), concatNames(type).location);
    }
    return updateLocation(id, b, e, a);
}

om::Oid Parser::constructVariableDeclaration(L const& b, L const& e, L const& a, Names const& type,
                                             Name const& name, om::Oid initialValue) {
    if (skipsComponentsOnly()) {
        return om::NULL_OID;
    }
    om::Oid id =
        kel::constructVariableDeclaration(m_model, concatNameIds(type), name.name, initialValue);
    updateLocation(kel::Find<kel::VariableDeclaration>(m_model, id).getTypeOid(),
                   concatNames(type).location);
    return updateLocation(id, b, e, a);
}

om::Oid Parser::constructInternalDeclaration(L const& b, L const& e, L const& a,
                                             Names const& interface, Name const& name,
                                             Oids const& parameters) {
    Name interfaceName = concatNames(interface);
    om::Oid id =
        kel::constructInternalDeclaration(m_model, interfaceName.name, name.name, parameters);
    updateLocation(kel::Find<kel::InternalDeclaration>(m_model, id).getInterfaceOid(),
                   interfaceName.location);
    return updateLocation(id, b, e, a);
}

om::Oid Parser::constructFormalParameter(L const& b, L const& e, L const& a,
                                         kel::ParameterDirection direction, Names const& type,
                                         Name const& name) {
    if (skipsComponentsOnly()) {
        return om::NULL_OID;
    }
    om::Oid id = kel::constructFormalParameter(m_model, direction, concatNameIds(type), name.name);
    updateLocation(kel::Find<kel::ParameterDeclaration>(m_model, id).getTypeOid(),
                   concatNames(type).location);
    return updateLocation(id, b, e, a);
}

om::Oid Parser::constructPortDeclaration(L const& b, L const& e, L const& a,
                                         Direction const& direction, Names const& interface,
                                         Name const& name) {
    Name interfaceName = concatNames(interface);
    om::Oid id =
        kel::constructPortDeclaration(m_model, interfaceName.name, name.name, direction.direction,
                                      direction.injected, direction.external);
    updateLocation(kel::Find<kel::PortDeclaration>(m_model, id).getInterfaceOid(),
                   interfaceName.location);
    return updateLocation(id, b, e, a);
}

} // namespace language
