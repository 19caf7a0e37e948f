#pragma once
// The model gender editor: the player models of a game in two lists, male and female, between
// which the user moves models by double click (or Enter) or by dragging; OK writes the female list.

#include <QDialog>
#include <QPixmap>
#include <QPoint>
#include <QString>
#include <array>
#include <filesystem>
#include <string>

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace rd {

class frmSex : public QDialog {
    Q_OBJECT
public:
    explicit frmSex(std::filesystem::path root, QWidget* parent = nullptr);

    // "UNLOAD" when there were no games (the screen closes itself once shown), empty otherwise.
    QString tag() const { return tag_; }
    // Where OK writes the female list; empty before any game was loaded.
    const std::filesystem::path& saveTarget() const { return saveTarget_; }

    // The drag pictures, drawn by the program: kPictureOverList while a dragged model is over one of
    // the two lists, kPictureAway while it is anywhere else.
    static constexpr int kPictureOverList = 0;
    static constexpr int kPictureAway = 1;
    std::array<QPixmap, 2> ImageList1;
    // The picture the drag shows now, or -1 when no model is being dragged.
    int dragPicture() const { return dragPicture_; }

    QLabel* Label1 = nullptr;
    QComboBox* cboGame = nullptr;
    QLabel* lblMale = nullptr;
    QListWidget* lstBlokes = nullptr;
    QLabel* lblFemale = nullptr;
    QListWidget* lstLadies = nullptr;
    QLabel* lblinfo = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

public slots:
    void cboGame_Click();
    void lstBlokes_DblClick();
    void lstLadies_DblClick();
    void cmdOK_Click();
    void cmdCancel_Click();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    void loadLists(const std::string& game);
    // Moves the selected model of `from` to the end of `to`; nothing when none is selected.
    void moveModel(QListWidget* from, QListWidget* to);
    QListWidget* listAt(const QPoint& globalPos) const;
    bool handleMouse(QListWidget* list, QEvent* event);
    void showDragPicture(int picture);
    void endDrag();

    std::filesystem::path root_;
    std::filesystem::path saveTarget_;
    QString tag_;

    QListWidget* pressedList_ = nullptr; // the list the left button went down in
    QPoint pressedAt_;
    QListWidget* dragSource_ = nullptr; // the list a model is being dragged from
    int dragPicture_ = -1;
};

} // namespace rd
