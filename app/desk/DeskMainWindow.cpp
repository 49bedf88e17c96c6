#include "DeskMainWindow.h"

#include "CatalogueDock.h"
#include "CharacterCompanionRows.h"
#include "CharacterFeatureRows.h"
#include "CharacterGodRows.h"
#include "CharacterItemRows.h"
#include "CharacterSkillRows.h"
#include "CharacterSpellRows.h"
#include "DeskPrinting.h"
#include "NewCharacterDialog.h"
#include "TreasureDialog.h"

#include "D_UICharRollDialog.h"
#include "D_UICharacterGenFrame.h"
#include "D_UIMonsterAdvanceDialog.h"
#include "D_UIMonsterGenFrame.h"

#include "DCharFlags.h"
#include "DCharStatType.h"
#include "DCharacter.h"
#include "DCharacterClass.h"
#include "DClassEntryRules.h"
#include "DClassInfo.h"
#include "DCompanionRules.h"
#include "DDatabase.h"
#include "DFallRules.h"
#include "DFileObject.h"
#include "DHandBook.h"
#include "DObjectManager.h"
#include "DRace.h"
#include "DSizeInfo.h"
#include "DTreasure.h"
#include "DiceGenFrame.h"
#include "FCFileManager.h"
#include "FCString.h"
#include "TableGenFrame.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QTextBrowser>

DeskMainWindow::DeskMainWindow(const QString& databaseConnection, QWidget* parent)
    : QMainWindow(parent), mDatabaseConnection(databaseConnection) {
    setWindowTitle(QStringLiteral("Hoard"));
    resize(900, 640);
    mView = new QTextBrowser(this);
    mStatBlockView = new QTextBrowser(this);
    mStatBlockView->setObjectName("statBlockView");
    mTabs = new QTabWidget(this);
    mTabs->addTab(mView, tr("Character"));
    mTabs->addTab(mStatBlockView, tr("Stat Block"));
    mTabs->setTabEnabled(1, false);
    setCentralWidget(mTabs);
    mStatus = new QLabel(this);
    statusBar()->addPermanentWidget(mStatus);
    BuildMenus();
    StartLibrary();
    mCatalogues = new CatalogueDock(this);
    addDockWidget(Qt::LeftDockWidgetArea, mCatalogues);
    connect(mCatalogues, &CatalogueDock::EntryActivated, this, &DeskMainWindow::ShowEntry);
    ShowDatabaseSummary();
}

DeskMainWindow::~DeskMainWindow() {
    SetCurrentCharacter(nullptr, QString());
    DObjectManager::ShutDown();
    DDatabase::ShutDown();
}

void DeskMainWindow::BuildMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&New Character..."), QKeySequence::New, this,
                    &DeskMainWindow::NewCharacter);
    file->addAction(tr("&Open..."), QKeySequence::Open, this, &DeskMainWindow::ChooseFileToOpen);
    mSaveAction =
        file->addAction(tr("&Save"), QKeySequence::Save, this, &DeskMainWindow::SaveCharacter);
    mSaveAsAction = file->addAction(tr("Save &As..."), QKeySequence::SaveAs, this,
                                    &DeskMainWindow::SaveCharacterAs);
    mSaveAction->setEnabled(false);
    mSaveAsAction->setEnabled(false);
    file->addSeparator();
    mOutputActions = {
        file->addAction(tr("&Print..."), QKeySequence::Print, this,
                        &DeskMainWindow::PrintCharacter),
        file->addAction(tr("Print Pre&view..."), this, &DeskMainWindow::PrintPreviewCharacter),
        file->addAction(tr("&Export..."), this, &DeskMainWindow::ExportCharacter)};
    for (QAction* action : mOutputActions)
        action->setEnabled(false);
    file->addSeparator();
    file->addAction(tr("&Quit"), QKeySequence::Quit, qApp, &QApplication::closeAllWindows);
    QMenu* character = menuBar()->addMenu(tr("&Character"));
    mAbilityAction =
        character->addAction(tr("&Ability Scores..."), this, &DeskMainWindow::EditAbilityScores);
    mAbilityAction->setEnabled(false);
    mAdvanceAction =
        character->addAction(tr("Ad&vance Monster..."), this, &DeskMainWindow::AdvanceMonster);
    mAdvanceAction->setEnabled(false);
    character->addSeparator();
    mLevelActions = {
        character->addAction(tr("Level &Up..."), this, &DeskMainWindow::LevelUp),
        character->addAction(tr("Level &Down"), this, &DeskMainWindow::LevelDown),
        character->addAction(tr("&Fall from Class..."), this, &DeskMainWindow::FallFromClass),
        character->addAction(tr("A&tone..."), this, &DeskMainWindow::Atone)};
    for (QAction* action : mLevelActions)
        action->setEnabled(false);
    QMenu* tools = menuBar()->addMenu(tr("&Tools"));
    tools->addAction(tr("&Dice..."), this, [this] {
        // One dice window: asking again brings it forward.
        auto* dice = findChild<DiceGenFrame*>();
        if (!dice) {
            dice = new DiceGenFrame(this);
            dice->setWindowFlag(Qt::Window);
            dice->setAttribute(Qt::WA_DeleteOnClose);
        }
        dice->show();
        dice->raise();
        dice->activateWindow();
    });
    tools->addAction(tr("&Tables..."), this, [this] { OpenTables(); });
    tools->addAction(tr("&Character Generator..."), this, [this] { OpenGenerator(false); });
    tools->addAction(tr("&Monster Generator..."), this, [this] { OpenGenerator(true); });
    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About Hoard"), this, &DeskMainWindow::ShowAbout);
}

void DeskMainWindow::StartLibrary() {
    mDatabaseOpen = DDatabase::StartUp(FCString(mDatabaseConnection));
    DObjectManager::StartUp();
    for (int index = 0; index < kTableCount; ++index)
        mTablesPresent += DDatabase::ProbeRecordCount(index) >= 0 ? 1 : 0;
}

void DeskMainWindow::ShowDatabaseSummary() {
    const QString state = mDatabaseOpen ? tr("Rules database: %1 (%2 of %3 tables)")
                                              .arg(mDatabaseConnection)
                                              .arg(mTablesPresent)
                                              .arg(kTableCount)
                                        : tr("No rules database: %1").arg(mDatabaseConnection);
    mStatus->setText(state);
    QString html = QStringLiteral("<h2>Hoard</h2><p>%1</p>").arg(state.toHtmlEscaped());
    html += tr("<p>Ready races: %1 &middot; characters: %2 &middot; monsters: %3 &middot; "
               "treasures: %4 &middot; tables: %5</p>")
                .arg(DObjectManager::GetRaceFileSet().GetCount())
                .arg(DObjectManager::GetCharacterSet().GetCount())
                .arg(DObjectManager::GetMonsterSet().GetCount())
                .arg(DObjectManager::GetTreasureSet().GetCount())
                .arg(DObjectManager::GetTableSet().GetCount());
    html += tr("<p>Use File &rarr; Open to look at a character file.</p>");
    mView->setHtml(html);
}

void DeskMainWindow::ShowEntry(DFileObject* entry) {
    const QString path = FCFileManager::ResolvePath(entry->GetAccessFilePath());
    if (entry->GetObjectType() == kObjectCharacter || entry->GetObjectType() == kObjectMonster) {
        OpenFile(path);
        return;
    }
    if (entry->GetObjectType() == kObjectTreasure) {
        OpenTreasure(path);
        return;
    }
    if (entry->GetObjectType() != kObjectRace)
        return;
    DRace* race = DRace::CreateFromFile(FCString(path), false);
    if (!race) {
        QMessageBox::warning(this, tr("Race"), tr("%1 cannot be read.").arg(path));
        return;
    }
    const DSizeInfo* size = DDatabase::GetSizeInfo(race->GetSizeId());
    mView->setHtml(tr("<h2>%1</h2><table>"
                      "<tr><td><b>Size</b></td><td>%2</td></tr>"
                      "<tr><td><b>Hit dice</b></td><td>%3</td></tr>"
                      "<tr><td><b>Challenge rating</b></td><td>%4</td></tr>"
                      "<tr><td><b>File</b></td><td>%5</td></tr></table>"
                      "<p>hoard race show \"%1\" prints every field.</p>")
                       .arg(race->GetRaceName().toHtmlEscaped(),
                            size ? size->GetSizeName().toHtmlEscaped() : QString(),
                            QString::number(race->GetHitDieCount()),
                            QString::number(race->GetChallengeRating()), path.toHtmlEscaped()));
    race->Release();
}

void DeskMainWindow::ChooseFileToOpen() {
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Open"), QString(),
        tr("Characters and monsters (*.chr *.mon);;Treasures (*.trs);;All files (*)"));
    if (!path.isEmpty())
        OpenFile(path);
}

QWidget* DeskMainWindow::OpenTreasure(const QString& path) {
    FCRef<DTreasure> treasure(DTreasure::CreateFromFile(QFileInfo(path).absoluteFilePath()));
    if (!treasure) {
        QMessageBox::warning(this, tr("Open"), tr("%1 is not a readable treasure file.").arg(path));
        return nullptr;
    }
    auto* dialog = new TreasureDialog(treasure.get(), QFileInfo(path).fileName(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
    return dialog;
}

bool DeskMainWindow::OpenFile(const QString& path) {
    if (path.endsWith(QStringLiteral(".trs"), Qt::CaseInsensitive))
        return OpenTreasure(path) != nullptr;
    DCharacter* character = DCharacter::CreateFromFile(FCString(path), false, nullptr);
    if (!character) {
        QMessageBox::warning(this, tr("Open"),
                             tr("%1 is not a readable character file.").arg(path));
        return false;
    }
    if (character->GetLoadResult() == 1) {
        QMessageBox::warning(this, tr("Open"),
                             tr("The race of %1 is missing: %2")
                                 .arg(QFileInfo(path).fileName(),
                                      character->GetRaceFileObject()->GetAccessFilePath()));
        character->Release();
        return false;
    }
    // What was added to the race since the file was saved reaches the character.
    DHandBook::UpdateWithRace(character);
    // Companions are kept as their races: their creatures are built for the master as read.
    DCompanionRules::UpdateAnimals(character);
    SetCurrentCharacter(character, path);
    return true;
}

void DeskMainWindow::ShowCharacter(const DCharacter& character, const QString& file) {
    const DRace* race = character.GetRace();
    QStringList classes;
    for (const DCharacterClass* characterClass : character.GetClassList()) {
        const DClassInfo* info = DDatabase::GetClassInfoA(characterClass->GetClassGuid());
        classes << QStringLiteral("%1 %2")
                       .arg(info ? QString(info->mName) : tr("(unknown class)"))
                       .arg(DHandBook::BuildFractionString(characterClass->GetLevel()));
    }
    const QString names[] = {tr("Str"), tr("Dex"), tr("Con"), tr("Int"), tr("Wis"), tr("Cha")};
    QStringList abilities;
    for (int a = 0; a < DCharacter::kAbilityCount; ++a) {
        const int score = character.GetAbilityStat(a);
        const int modifier = DHandBook::GetAbilityModifier(score);
        abilities << (score < 0 ? tr("%1 -").arg(names[a])
                                : QStringLiteral("%1 %2 (%3%4)")
                                      .arg(names[a])
                                      .arg(score)
                                      .arg(modifier >= 0 ? "+" : "")
                                      .arg(modifier));
    }
    QString fileText = file.isEmpty() ? tr("not saved") : file.toHtmlEscaped();
    if (mCharacterEdited)
        fileText += tr(" (changed here, not saved)");
    mView->setHtml(
        tr("<h2>%1</h2><table>"
           "<tr><td><b>Player</b></td><td>%2</td></tr>"
           "<tr><td><b>Race</b></td><td>%3</td></tr>"
           "<tr><td><b>Level</b></td><td>%4</td></tr>"
           "<tr><td><b>Classes</b></td><td>%5</td></tr>"
           "<tr><td><b>Abilities</b></td><td>%6</td></tr>"
           "<tr><td><b>Hit points</b></td><td>%7</td></tr>"
           "%8"
           "<tr><td><b>File</b></td><td>%9</td></tr></table>")
            .arg(character.GetCharacterName().toHtmlEscaped(),
                 character.GetPlayerName().toHtmlEscaped(),
                 race ? race->GetRaceName().toHtmlEscaped() : QString(),
                 QString::number(int(character.GetCharacterLevel())),
                 classes.join(", ").toHtmlEscaped(), abilities.join(", "),
                 QString::number(character.GetCharacterStat(kStatHitPoints)),
                 CombatRows(character) + CharacterSkillRows::Build(character) +
                     CharacterItemRows::Build(character) + CharacterFeatureRows::Build(character) +
                     CharacterGodRows::Build(character) + CharacterSpellRows::Build(character) +
                     CharacterCompanionRows::Build(character),
                 fileText));
    setWindowTitle(tr("Hoard - %1").arg(character.GetCharacterName()));
    // Rewritten at every showing, so it follows every change made here.
    if (mCharacter)
        mStatBlockView->setHtml(DeskPrinting::StatBlockHtml(mCharacter));
}

void DeskMainWindow::ShowStatBlockTab() {
    if (mTabs->isTabEnabled(1))
        mTabs->setCurrentIndex(1);
}

void DeskMainWindow::OpenPrintPreview(const QString& style) {
    if (mCharacter)
        DeskPrinting::PrintPreview(this, mCharacter, style);
}

void DeskMainWindow::PrintCharacter() {
    if (mCharacter)
        DeskPrinting::Print(this, mCharacter);
}

void DeskMainWindow::PrintPreviewCharacter() {
    if (mCharacter)
        DeskPrinting::PrintPreview(this, mCharacter);
}

void DeskMainWindow::ExportCharacter() {
    if (mCharacter)
        DeskPrinting::Export(this, mCharacter);
}

QString DeskMainWindow::CombatRows(const DCharacter& character) const {
    // The engine's read operations take a character they do not change.
    auto* engineCharacter = const_cast<DCharacter*>(&character);
    const auto sign = [](int value) { return FCString::numberWithSign(value); };
    const auto row = [](const QString& caption, const QString& value) {
        return QStringLiteral("<tr><td><b>%1</b></td><td>%2</td></tr>").arg(caption, value);
    };
    QString rows;
    rows += row(tr("Armor class"), tr("%1, touch %2, flat-footed %3")
                                       .arg(character.GetCharacterStat(kStatArmorClass))
                                       .arg(DHandBook::GetTouchArmorClass(engineCharacter))
                                       .arg(DHandBook::GetFlatFootedArmorClass(engineCharacter)));
    rows += row(tr("Initiative"), sign(character.GetCharacterStat(kStatInitiative)));
    rows += row(tr("Base attack"), tr("%1, grapple %2")
                                       .arg(sign(character.GetCharacterStat(kStatBaseAttack)),
                                            sign(DHandBook::ComputeGrapple(engineCharacter))));
    rows += row(tr("Saves"), tr("Fort %1, Ref %2, Will %3")
                                 .arg(sign(character.GetCharacterStat(kStatFortitude)),
                                      sign(character.GetCharacterStat(kStatReflex)),
                                      sign(character.GetCharacterStat(kStatWill))));
    const int height = character.GetCharacterStat(kStatHeight);
    if (character.GetCharacterStat(kStatAge) > 0 || height > 0)
        rows += row(tr("Age, height, weight"), tr("%1 years, %2' %3\", %4 lb.")
                                                   .arg(character.GetCharacterStat(kStatAge))
                                                   .arg(height / 12)
                                                   .arg(height % 12)
                                                   .arg(character.GetCharacterStat(kStatWeight)));
    rows += row(tr("Experience"), QString::number(character.GetCharacterStat(kStatExperience)));
    return rows;
}

void DeskMainWindow::NewCharacter() {
    NewCharacterDialog dialog(this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    DCharacter* character = dialog.CreateCharacter();
    if (!character) {
        QMessageBox::warning(this, tr("New Character"), tr("The chosen race cannot be read."));
        return;
    }
    SetCurrentCharacter(character, QString());
}

void DeskMainWindow::SetCurrentCharacter(DCharacter* character, const QString& file) {
    if (mCharacter)
        mCharacter->Release();
    mCharacter = character;
    mCharacterFile = file;
    // A character made here exists nowhere else until it is saved.
    mCharacterEdited = mCharacter && file.isEmpty();
    for (QAction* action : {mAbilityAction, mAdvanceAction, mSaveAction, mSaveAsAction}) {
        if (action)
            action->setEnabled(mCharacter != nullptr);
    }
    for (QAction* action : mOutputActions + mLevelActions)
        action->setEnabled(mCharacter != nullptr);
    mTabs->setTabEnabled(1, mCharacter != nullptr);
    if (!mCharacter)
        mTabs->setCurrentIndex(0);
    if (mCharacter)
        ShowCharacter(*mCharacter, mCharacterFile);
}

void DeskMainWindow::EditAbilityScores() {
    if (!mCharacter)
        return;
    D_UICharRollDialog dialog(this);
    dialog.Setup(mCharacter);
    if (dialog.exec() != QDialog::Accepted)
        return;
    MarkCharacterChanged();
}

void DeskMainWindow::AdvanceMonster() {
    if (!mCharacter)
        return;
    D_UIMonsterAdvanceDialog dialog(this);
    if (!dialog.Setup(mCharacter) || !mCharacter->IsMonsterClassOnly()) {
        QMessageBox::information(this, tr("Monster Advancement"),
                                 tr("%1 cannot advance by racial hit dice: its race has no "
                                    "advancement left, or it has class levels.")
                                     .arg(QString(mCharacter->GetCharacterName())));
        return;
    }
    if (dialog.exec() != QDialog::Accepted)
        return;
    mCharacter->AddChangeFlag(kChangeLevelUp);
    const DCharacterClass* raceClass = mCharacter->GetRaceClassPointer();
    const float oldHD = raceClass ? raceClass->GetLevel() : mCharacter->GetCharacterLevel();
    DHandBook::AdvanceCharacterWithHD(mCharacter, oldHD, dialog.GetNewHitDice(), false);
    MarkCharacterChanged();
}

void DeskMainWindow::LevelUp() {
    if (!mCharacter)
        return;
    // The classes it holds first, in the order taken, then every other by name.
    const QUuid raceClass = mCharacter->GetRace() ? mCharacter->GetRace()->GetClassGuid() : QUuid();
    QList<QUuid> offered;
    for (const DCharacterClass* held : mCharacter->GetClassList()) {
        if (held->GetClassGuid() != raceClass)
            offered << held->GetClassGuid();
    }
    for (const QUuid& guid : DClassEntryRules::ClassesToOffer()) {
        if (!offered.contains(guid))
            offered << guid;
    }
    const QUuid chosen = ChooseClass(tr("Level Up"), tr("Class of the new level:"), offered);
    if (chosen.isNull())
        return;
    const QString refused = DClassEntryRules::Refusal(*mCharacter, chosen);
    if (!refused.isEmpty()) {
        QMessageBox::information(this, tr("Level Up"), refused);
        return;
    }
    if (!DHandBook::AddCharacterLevel(mCharacter, chosen, false))
        return;
    MarkCharacterChanged();
}

QUuid DeskMainWindow::ChooseClass(const QString& title, const QString& label,
                                  const QList<QUuid>& classes) {
    QStringList names;
    for (const QUuid& guid : classes) {
        const DClassInfo* info = DDatabase::GetClassInfoA(guid);
        names << (info ? QString(info->mName) : guid.toString());
    }
    bool chosen = false;
    const QString name = QInputDialog::getItem(this, title, label, names, 0, false, &chosen);
    const qsizetype index = names.indexOf(name);
    return chosen && index >= 0 ? classes[index] : QUuid();
}

void DeskMainWindow::LevelDown() {
    if (!mCharacter)
        return;
    if (!DHandBook::RemoveCharacterLevel(mCharacter, false)) {
        QMessageBox::information(this, tr("Level Down"),
                                 tr("%1 has no level to take back: the race and the first class "
                                    "level are part of its making.")
                                     .arg(QString(mCharacter->GetCharacterName())));
        return;
    }
    MarkCharacterChanged();
}

void DeskMainWindow::ChangeClassFallen(bool fallen) {
    if (!mCharacter)
        return;
    const QString title = fallen ? tr("Fall from Class") : tr("Atone");
    const QList<QUuid> classes = DFallRules::ClassesToChange(*mCharacter, fallen);
    if (classes.isEmpty()) {
        QMessageBox::information(
            this, title,
            fallen ? tr("%1 has no class that can fall (a paladin, druid or barbarian).")
                         .arg(QString(mCharacter->GetCharacterName()))
                   : tr("%1 has no fallen class.").arg(QString(mCharacter->GetCharacterName())));
        return;
    }
    const QUuid chosen =
        ChooseClass(title, fallen ? tr("Class that falls:") : tr("Class that atones:"), classes);
    if (chosen.isNull())
        return;
    DHandBook::SetClassFallen(mCharacter, chosen, fallen, false);
    MarkCharacterChanged();
}

void DeskMainWindow::MarkCharacterChanged() {
    mCharacterEdited = true;
    ShowCharacter(*mCharacter, mCharacterFile);
}

bool DeskMainWindow::TriggerMenuCommand(const QString& caption) {
    for (QAction* menuAction : menuBar()->actions()) {
        const QMenu* menu = menuAction->menu();
        for (QAction* action : menu ? menu->actions() : QList<QAction*>()) {
            if (action->text().remove(QLatin1Char('&')) != caption)
                continue;
            if (!action->isEnabled())
                return false;
            action->trigger();
            return true;
        }
    }
    return false;
}

bool DeskMainWindow::SaveCharacter() {
    if (!mCharacter)
        return false;
    if (mCharacterFile.isEmpty())
        return SaveCharacterAs();
    return SaveCharacterTo(mCharacterFile);
}

bool DeskMainWindow::SaveCharacterAs() {
    if (!mCharacter)
        return false;
    QString suggested = mCharacterFile;
    if (suggested.isEmpty())
        suggested = QString(mCharacter->GetCharacterName()) + QStringLiteral(".chr");
    QString path = QFileDialog::getSaveFileName(this, tr("Save Character"), suggested,
                                                tr("Characters (*.chr);;All files (*)"));
    if (path.isEmpty())
        return false;
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".chr");
    return SaveCharacterTo(path);
}

bool DeskMainWindow::SaveCharacterTo(const QString& path) {
    // The save is atomic: a failure leaves whatever file stood there untouched.
    if (!mCharacter->SaveToFile(FCString(path))) {
        QMessageBox::warning(this, tr("Save Character"),
                             tr("%1 cannot be written; nothing was changed on disk.").arg(path));
        return false;
    }
    DObjectManager::HandleCharacterSave(FCString(path));
    mCharacterFile = path;
    mCharacterEdited = false;
    ShowCharacter(*mCharacter, mCharacterFile);
    statusBar()->showMessage(tr("Saved %1").arg(path), 5000);
    return true;
}

void DeskMainWindow::closeEvent(QCloseEvent* event) {
    if (!mCharacter || !mCharacterEdited) {
        event->accept();
        return;
    }
    const auto answer = QMessageBox::question(
        this, tr("Quit"),
        tr("%1 has changes that are not saved.").arg(mCharacter->GetCharacterName()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Cancel || (answer == QMessageBox::Save && !SaveCharacter())) {
        event->ignore();
        return;
    }
    event->accept();
}

void DeskMainWindow::ShowAbout() {
    QMessageBox::about(this, tr("About Hoard"),
                       tr("<h3>Hoard %1</h3><p>Characters, monsters, races, treasure and tables "
                          "for the open 3.5 rules.</p><p>Rules data: System Reference Document "
                          "3.5, Open Game License 1.0a.</p>")
                           .arg(QStringLiteral(HOARD_VERSION)));
}

QWidget* DeskMainWindow::OpenTables(const QString& rollName) {
    // One table window: asking again brings it forward.
    auto* tables = findChild<TableGenFrame*>();
    if (!tables) {
        tables = new TableGenFrame(this);
        tables->setWindowFlag(Qt::Window);
        tables->setAttribute(Qt::WA_DeleteOnClose);
        connect(tables, &TableGenFrame::creatureBuilt, this, &DeskMainWindow::ShowBuiltCharacter);
        connect(tables, &TableGenFrame::treasureBuilt, this,
                [this](DTreasure* treasure, const QString& title) {
                    auto* dialog = new TreasureDialog(treasure, title, this);
                    dialog->setAttribute(Qt::WA_DeleteOnClose);
                    dialog->show();
                });
    }
    if (!rollName.isEmpty() && tables->SelectTable(rollName))
        tables->Generate();
    tables->show();
    tables->raise();
    tables->activateWindow();
    return tables;
}

void DeskMainWindow::ShowBuiltCharacter(DCharacter* character, const QString& title) {
    character->Retain();
    SetCurrentCharacter(character, QString());
    setWindowTitle(tr("Hoard - %1 (%2)").arg(QString(character->GetCharacterName()), title));
    raise();
    activateWindow();
}

QWidget* DeskMainWindow::OpenGenerator(bool monsters) {
    // One window of each kind: asking again brings it forward.
    QWidget* frame = monsters ? static_cast<QWidget*>(findChild<D_UIMonsterGenFrame*>())
                              : static_cast<QWidget*>(findChild<D_UICharacterGenFrame*>());
    if (!frame) {
        if (monsters) {
            auto* generator = new D_UIMonsterGenFrame(this);
            connect(generator, &D_UIMonsterGenFrame::monsterBuilt, this,
                    &DeskMainWindow::ShowBuiltCharacter);
            frame = generator;
        } else {
            auto* generator = new D_UICharacterGenFrame(this);
            connect(generator, &D_UICharacterGenFrame::characterBuilt, this,
                    &DeskMainWindow::ShowBuiltCharacter);
            frame = generator;
        }
        frame->setWindowFlag(Qt::Window);
        frame->setAttribute(Qt::WA_DeleteOnClose);
    }
    frame->show();
    frame->raise();
    frame->activateWindow();
    return frame;
}
