#include "maps/screens/frmArenas.h"

#include "maps/arenas.h"
#include "maps/screens/frmEditArena.h"

namespace rd {

frmArenas::frmArenas(std::filesystem::path root, QWidget* parent)
    : GameFileChooser(std::move(root),
                      Words{"frmArenas", QStringLiteral("Arena Editor"), QStringLiteral("Choose Game:"),
                            QStringLiteral("&Maps with Arena Files:"),
                            QStringLiteral("Type in the name of the map to add"),
                            QStringLiteral("Arena Editor"),
                            QStringLiteral("Delete this map's arenas, are you sure?")},
                      parent) {
    Form_Load();
}

std::vector<std::string> frmArenas::listNames(const std::string& game) const {
    return ListArenaMaps(root(), game);
}

NewFileOutcome frmArenas::createName(const std::string& game, const std::string& name) const {
    return CreateArenaMap(root(), game, name);
}

RenameOutcome frmArenas::renameName(const std::string& game, const std::string& oldName,
                                    const std::string& newName) const {
    return RenameArenaMap(root(), game, oldName, newName);
}

void frmArenas::deleteName(const std::string& game, const std::string& name) const {
    DeleteArenaMap(root(), game, name);
}

std::filesystem::path frmArenas::pathOf(const std::string& game, const std::string& name) const {
    return arenaPath(root(), game, name);
}

void frmArenas::openEditor(const std::string&, const std::string& name, const std::filesystem::path& path) {
    frmEditArena editor(path, name, this);
    editor.exec();
}

} // namespace rd
