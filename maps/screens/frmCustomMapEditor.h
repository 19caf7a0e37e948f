#pragma once
// The map category chooser: the games, the chosen game's custom map categories, and the commands
// that create, edit, rename and delete them.

#include "maps/screens/gamefilechooser.h"

namespace rd {

class frmCustomMapEditor : public GameFileChooser {
    Q_OBJECT
public:
    explicit frmCustomMapEditor(std::filesystem::path root, QWidget* parent = nullptr);

protected:
    std::vector<std::string> listNames(const std::string& game) const override;
    NewFileOutcome createName(const std::string& game, const std::string& name) const override;
    RenameOutcome renameName(const std::string& game, const std::string& oldName,
                             const std::string& newName) const override;
    void deleteName(const std::string& game, const std::string& name) const override;
    std::filesystem::path pathOf(const std::string& game, const std::string& name) const override;
    void openEditor(const std::string& game, const std::string& name,
                    const std::filesystem::path& path) override;
};

} // namespace rd
