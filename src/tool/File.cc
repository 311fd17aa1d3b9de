#include "tool/File.h"

#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ModelDeclaration.h"
#include "metamodel/Namespace.h"
#include "metamodel/Root.h"
#include "parser/grammar/Parser.h"

#include <iostream>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace {

kel::ModelDeclaration const* findModel(kel::Namespace const& space, std::string const& name) {
    for (kel::ModelDeclaration const* model : space.getModels()) {
        if (model->getName() == name) {
            return model;
        }
    }
    return nullptr;
}

// The first nested namespace whose name starts `name`; the match does not stop
// at a dot, so "ab" takes "abc.M" when it comes before "abc".
kel::Namespace const* findPrefixNamespace(kel::Namespace const& space, std::string const& name) {
    for (kel::Namespace const* nested : space.getNamespaces()) {
        if (name.starts_with(nested->getName())) {
            return nested;
        }
    }
    return nullptr;
}

void collectModelNames(kel::Namespace const& space, std::string const& prefix,
                       std::vector<std::string>& names) {
    if (space.getName() == "kel") {
        return;
    }
    for (kel::ModelDeclaration const* model : space.getModels()) {
        if (!model->getName().empty()) {
            names.push_back(prefix + model->getName());
        }
    }
    for (kel::Namespace const* nested : space.getNamespaces()) {
        std::string const nestedPrefix =
            nested->getName().empty() ? prefix : prefix + nested->getName() + ".";
        collectModelNames(*nested, nestedPrefix, names);
    }
}

} // namespace

File::File(std::string const& path, std::vector<std::string> const& includePaths)
    : m_objectModel(m_factory) {
    loadFile(path, includePaths);
}

File::~File() { m_objectModel.clear(); }

void File::initObjectModelWithNewRoot() {
    om::Object const* root = m_objectModel.createRecursive(kel::Root::ClassName);
    m_objectModel.update(*root->clone());
}

void File::loadFile(std::string const& path, std::vector<std::string> const& includePaths) {
    initObjectModelWithNewRoot();
    language::Parser parser(m_objectModel);
    bool const loaded = path == "-"
                            ? parser.parseStream(std::cin, "stdin", includePaths, true, true, true)
                            : parser.parseFile(path, includePaths, false, true);
    if (!loaded) {
        std::ostringstream text;
        text << "Parsing failed: \n";
        parser.printErrors(text);
        throw std::runtime_error(text.str());
    }
}

kel::ModelDeclaration const* File::TryGetModel(std::string const& name) const {
    kel::ConstNamespaceVec const namespaces = kel::GetRoot(m_objectModel).getNamespaces();
    if (namespaces.empty()) {
        return nullptr;
    }
    kel::Namespace const* space = namespaces.front();
    std::string rest = name;
    for (;;) {
        if (kel::ModelDeclaration const* model = findModel(*space, rest)) {
            return model;
        }
        space = findPrefixNamespace(*space, rest);
        if (!space) {
            return nullptr;
        }
        if (auto const dot = rest.find('.'); dot != std::string::npos) {
            rest.erase(0, dot + 1);
        }
    }
}

std::vector<std::string> File::ModelNames() const {
    std::vector<std::string> names;
    for (kel::Namespace const* space : kel::GetRoot(m_objectModel).getNamespaces()) {
        collectModelNames(*space, "", names);
    }
    return names;
}
