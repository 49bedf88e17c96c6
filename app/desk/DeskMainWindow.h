#pragma once

#include <QList>
#include <QMainWindow>
#include <QUuid>

class CatalogueDock;
class DCharacter;
class DFileObject;
class QAction;
class QCloseEvent;
class QLabel;
class QTabWidget;
class QTextBrowser;

// The host's main window: starts the library, says which rules are loaded, opens files.
class DeskMainWindow : public QMainWindow {
    Q_OBJECT
public:
    DeskMainWindow(const QString& databaseConnection, QWidget* parent = nullptr);
    ~DeskMainWindow() override;

    bool IsDatabaseOpen() const { return mDatabaseOpen; }
    // Opens an object file and shows what it holds; false with a message if it cannot. A
    // ".trs" treasure opens in a window of its own.
    bool OpenFile(const QString& path);
    QWidget* OpenTreasure(const QString& path);
    CatalogueDock* GetCatalogueDock() const { return mCatalogues; }
    // For checks from the command line: the stat block tab brought forward, the print preview
    // opened with the named style.
    void ShowStatBlockTab();
    void OpenPrintPreview(const QString& style);
    // Tools → Tables…; with a name, that table is selected and rolled once.
    QWidget* OpenTables(const QString& rollName = QString());
    // Tools → Character Generator… or Monster Generator…
    QWidget* OpenGenerator(bool monsters);
    // For checks from the command line: triggers the menu command of that caption (without
    // its '&'); false if there is none or it is disabled.
    bool TriggerMenuCommand(const QString& caption);

private slots:
    void ChooseFileToOpen();
    void ShowEntry(DFileObject* entry);
    void NewCharacter();
    void EditAbilityScores();
    void AdvanceMonster();
    void LevelUp();
    void LevelDown();
    void FallFromClass() { ChangeClassFallen(true); }
    void Atone() { ChangeClassFallen(false); }
    // False when nothing was saved (no character, the dialog was cancelled, or the write
    // failed).
    bool SaveCharacter();
    bool SaveCharacterAs();
    void ShowAbout();
    void PrintCharacter();
    void PrintPreviewCharacter();
    void ExportCharacter();

protected:
    // Offers to save a character with changes before the window closes.
    void closeEvent(QCloseEvent* event) override;

private:
    bool SaveCharacterTo(const QString& path);
    // Asks which class falls (or atones) and applies it to the character shown.
    void ChangeClassFallen(bool fallen);
    // One of `classes` picked by name, or null when the user cancels.
    QUuid ChooseClass(const QString& title, const QString& label, const QList<QUuid>& classes);
    // The character was changed here: the view shows it and a save is offered.
    void MarkCharacterChanged();
    void BuildMenus();
    // A read-only view of a character; `file` is empty for one not saved yet.
    void ShowCharacter(const DCharacter& character, const QString& file);
    // Armor class, initiative, attack, saves and the vital statistics as table rows.
    QString CombatRows(const DCharacter& character) const;
    // Makes `character` (whose reference the window takes over) the one shown and edited.
    void SetCurrentCharacter(DCharacter* character, const QString& file);
    // A monster or character a generator or table made: shown as new and not saved.
    void ShowBuiltCharacter(DCharacter* character, const QString& title);
    void StartLibrary();
    void ShowDatabaseSummary();

    QString mDatabaseConnection;
    bool mDatabaseOpen = false;
    int mTablesPresent = 0;
    QTextBrowser* mView = nullptr;
    QLabel* mStatus = nullptr;
    CatalogueDock* mCatalogues = nullptr;
    QAction* mAbilityAction = nullptr;
    QAction* mAdvanceAction = nullptr;
    QList<QAction*> mLevelActions;
    QAction* mSaveAction = nullptr;
    QAction* mSaveAsAction = nullptr;
    QList<QAction*> mOutputActions;
    QTabWidget* mTabs = nullptr;
    QTextBrowser* mStatBlockView = nullptr;
    DCharacter* mCharacter = nullptr;
    QString mCharacterFile;
    bool mCharacterEdited = false;
};
