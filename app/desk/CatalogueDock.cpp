#include "CatalogueDock.h"

#include "DFileObject.h"
#include "DObjectManager.h"

#include <QHeaderView>
#include <QTreeWidget>

namespace {

constexpr int kEntryRole = Qt::UserRole + 1;

struct Catalogue {
    const char* title;
    FCPointerSet<DFileObject>& (*set)();
};

const Catalogue kCatalogues[] = {
    {QT_TRANSLATE_NOOP("CatalogueDock", "Races and monsters"), &DObjectManager::GetRaceFileSet},
    {QT_TRANSLATE_NOOP("CatalogueDock", "Characters"), &DObjectManager::GetCharacterSet},
    {QT_TRANSLATE_NOOP("CatalogueDock", "Monsters"), &DObjectManager::GetMonsterSet},
    {QT_TRANSLATE_NOOP("CatalogueDock", "Treasures"), &DObjectManager::GetTreasureSet},
    {QT_TRANSLATE_NOOP("CatalogueDock", "Tables"), &DObjectManager::GetTableSet},
};

} // namespace

CatalogueDock::CatalogueDock(QWidget* parent) : QDockWidget(tr("Catalogues"), parent) {
    setObjectName(QStringLiteral("CatalogueDock"));
    mTree = new QTreeWidget(this);
    mTree->setColumnCount(2);
    mTree->setHeaderLabels({tr("Name"), tr("Tree")});
    mTree->header()->setStretchLastSection(false);
    mTree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    mTree->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    mTree->setUniformRowHeights(true); // hundreds of monsters stay quick to scroll
    setWidget(mTree);
    connect(mTree, &QTreeWidget::itemActivated, this, &CatalogueDock::OnItemActivated);
    Refresh();
}

void CatalogueDock::Refresh() {
    mTree->clear();
    for (const Catalogue& catalogue : kCatalogues) {
        const FCPointerSet<DFileObject>& set = catalogue.set();
        auto* group = new QTreeWidgetItem(
            mTree, {tr("%1 (%2)").arg(tr(catalogue.title)).arg(set.GetCount())});
        group->setFirstColumnSpanned(true);
        group->setExpanded(set.GetCount() > 0 && mTree->topLevelItemCount() == 1);
        for (const auto& entry : set) {
            auto* item = new QTreeWidgetItem(
                group, {entry->GetBaseFileName(),
                        entry->GetFileObjectType() == kFileUser ? tr("user") : tr("core")});
            item->setData(0, kEntryRole, QVariant::fromValue(static_cast<void*>(entry.Get())));
        }
    }
}

int CatalogueDock::GetEntryCount() const {
    int count = 0;
    for (int i = 0; i < mTree->topLevelItemCount(); ++i)
        count += mTree->topLevelItem(i)->childCount();
    return count;
}

void CatalogueDock::OnItemActivated(QTreeWidgetItem* item) {
    if (auto* entry = static_cast<DFileObject*>(item->data(0, kEntryRole).value<void*>()))
        emit EntryActivated(entry);
}
