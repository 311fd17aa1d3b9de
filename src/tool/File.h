// The tool's handle on one loaded source: the factory, the store of its syntax
// tree, and the search for models by name.
#pragma once

#include "metamodel/Factory.h"
#include "om/ObjectModel.h"

#include <string>
#include <vector>

namespace kel {
class ModelDeclaration;
} // namespace kel

class File {
public:
    // Loads the source at `path` ("-" for standard input); a source with errors
    // raises a runtime error whose text lists them.
    File(std::string const& path, std::vector<std::string> const& includePaths);
    File(File const&) = delete;
    File& operator=(File const&) = delete;
    ~File();

    // The model of that qualified name, or null.
    kel::ModelDeclaration const* TryGetModel(std::string const& name) const;
    // The qualified names of all models of the source but the built-in ones.
    std::vector<std::string> ModelNames() const;

    om::ObjectModel const& objectModel() const { return m_objectModel; }

private:
    void loadFile(std::string const& path, std::vector<std::string> const& includePaths);
    void initObjectModelWithNewRoot();

    kel::Factory m_factory;
    om::ObjectModel m_objectModel;
};
