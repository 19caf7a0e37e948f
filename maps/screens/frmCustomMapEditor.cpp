#include "maps/screens/frmCustomMapEditor.h"

#include "maps/screens/frmCustomMaps.h"

namespace rd {

frmCustomMapEditor::frmCustomMapEditor(std::filesystem::path root, QWidget* parent)
    : GameFileChooser(std::move(root),
                      Words{"frmCustomMapEditor", QStringLiteral("Custom Map Editor"),
                            QStringLiteral("Choose Game:"), QStringLiteral("Map Ca&tegories:"),
                            QStringLiteral("Type in the name of the map category to add"),
                            // The category chooser's New shares its title with the arena chooser.
                            QStringLiteral("Arena Editor"),
                            QStringLiteral("Delete this map category, are you sure?")},
                      parent) {
    Form_Load();
}

std::vector<std::string> frmCustomMapEditor::listNames(const std::string& game) const {
    return ListCategories(root(), game);
}

NewFileOutcome frmCustomMapEditor::createName(const std::string& game, const std::string& name) const {
    return CreateCategory(root(), game, name);
}

RenameOutcome frmCustomMapEditor::renameName(const std::string& game, const std::string& oldName,
                                             const std::string& newName) const {
    return RenameCategory(root(), game, oldName, newName);
}

void frmCustomMapEditor::deleteName(const std::string& game, const std::string& name) const {
    DeleteCategory(root(), game, name);
}

std::filesystem::path frmCustomMapEditor::pathOf(const std::string& game, const std::string& name) const {
    return categoryPath(root(), game, name);
}

void frmCustomMapEditor::openEditor(const std::string& game, const std::string& name,
                                    const std::filesystem::path& path) {
    frmCustomMaps editor(root(), game, name, path, this);
    editor.exec();
}

} // namespace rd
