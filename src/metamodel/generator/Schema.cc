#include "Schema.h"

#include <algorithm>
#include <stdexcept>

namespace kel::gen {

std::string Member::keyConstant() const {
    switch (kind) {
    case MemberKind::Property:
        return name + "Property";
    case MemberKind::Composition:
        return name + "Composition";
    case MemberKind::Association:
        return name + "Association";
    }
    return name;
}

bool ClassDef::hasProperties() const {
    return std::any_of(members.begin(), members.end(),
                       [](Member const& member) { return member.isProperty(); });
}

ClassDef const& Schema::getClass(std::string const& name) const {
    for (auto const& cls : classes) {
        if (cls.name == name) {
            return cls;
        }
    }
    throw std::runtime_error("unknown class " + name);
}

PropertyTypeRow const& Schema::getPropertyType(std::string const& name) const {
    for (auto const& type : propertyTypes) {
        if (type.name == name) {
            return type;
        }
    }
    throw std::runtime_error("unknown property type " + name);
}

std::vector<ClassDef const*> Schema::directSubclasses(std::string const& name) const {
    std::vector<ClassDef const*> result;
    for (auto const& cls : classes) {
        if (cls.base == name) {
            result.push_back(&cls);
        }
    }
    return result;
}

std::vector<ClassDef const*> Schema::classAndDescendants(std::string const& name) const {
    std::vector<ClassDef const*> result;
    for (auto const& cls : classes) {
        if (isDerivedFrom(cls.name, name)) {
            result.push_back(&cls);
        }
    }
    return result;
}

std::vector<ClassDef const*> Schema::ancestors(std::string const& name) const {
    std::vector<ClassDef const*> result;
    for (auto const* cls = &getClass(name); !cls->hasRootBase();) {
        cls = &getClass(cls->base);
        result.push_back(cls);
    }
    return result;
}

bool Schema::isDerivedFrom(std::string const& name, std::string const& ancestor) const {
    for (auto const* cls = &getClass(name);; cls = &getClass(cls->base)) {
        if (cls->name == ancestor) {
            return true;
        }
        if (cls->hasRootBase()) {
            return false;
        }
    }
}

Schema::KindRange Schema::kindRange(std::string const& name) const {
    getClass(name);         // throws for a class the schema lacks
    std::uint32_t next = 1; // 0 is a plain object's
    KindRange found;
    // Numbers the tree under `base` from `next`; notes the range of `name`.
    auto number = [&](auto const& self, std::string const& base) -> void {
        for (auto const* cls : directSubclasses(base)) {
            auto const first = next++;
            self(self, cls->name);
            if (cls->name == name) {
                found = {first, next - 1};
            }
        }
    };
    number(number, "om::Object");
    return found;
}

std::uint32_t Schema::slotOf(ClassDef const& cls, Member const& member) const {
    std::uint32_t slot = 0;
    auto countBefore = [&](ClassDef const& owner) {
        for (auto const& other : owner.members) {
            if (&other == &member) {
                return;
            }
            slot += other.kind == member.kind ? 1 : 0;
        }
    };
    auto const bases = ancestors(cls.name);
    std::for_each(bases.rbegin(), bases.rend(), [&](ClassDef const* base) { countBefore(*base); });
    countBefore(cls);
    return slot;
}

} // namespace kel::gen
