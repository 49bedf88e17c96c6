#include "DCustomMagicItemInfo.h"
#include "DItemCollection.h"
#include "DMagicBonus.h"
#include "DOffenseGroup.h"
#include "DWeaponInfo.h"
#include "DWondrousInfo.h"
#include "ItemsSamples.h"

#include <gtest/gtest.h>


using namespace itemstest;

namespace {

// Reading must fail with no object and a failed archive.
void expectCleanFailure(const QByteArray& bytes, const char* what) {
    bool ok = true;
    FCObject* object = loadObject(bytes, &ok);
    EXPECT_EQ(object, nullptr) << what;
    EXPECT_FALSE(ok) << what;
    if (object)
        object->Release();
}

QByteArray word(quint32 value) {
    QByteArray bytes(4, '\0');
    for (int i = 0; i < 4; ++i)
        bytes[i] = char(value >> (24 - 8 * i));
    return bytes;
}

} // namespace

TEST(ItemArchiveFault, WrongStructureFailsCleanly) {
    const QByteArray collectionName = QByteArray::fromHex("000F") + "DItemCollection";
    const QByteArray nullObject(2, '\0');
    DMagicBonus bonus;
    const QByteArray bonusObject = storeObject(&bonus);

    // A plain item with no info ends in its 16 zero bytes and a null object.
    DItem empty;
    const QByteArray item = storeObject(&empty);
    // A wondrous item without a list ends in the word that says so.
    DWondrousInfo lamp;
    const QByteArray wondrous = storeObject(&lamp);
    // A custom item without abilities ends in the list's mode and count.
    DCustomMagicItemInfo custom;
    const QByteArray customBytes = storeObject(&custom);

    const std::pair<const char*, QByteArray> cases[] = {
        {"collection that deletes", collectionName + word(1) + word(0)},
        {"collection that borrows", collectionName + word(0) + word(0)},
        {"collection of unknown mode", collectionName + word(7) + word(0)},
        {"collection with more items than bytes", collectionName + word(2) + word(0x7FFFFFFF)},
        {"collection with a negative count", collectionName + word(2) + word(0xFFFFFFFF)},
        {"collection holding a bonus", collectionName + word(2) + word(1) + bonusObject},
        {"collection holding a null", collectionName + word(2) + word(1) + nullObject},
        {"item info that is no info", item.chopped(2) + bonusObject},
        {"wondrous list word 2", wondrous.chopped(4) + word(2)},
        {"wondrous list word without list", wondrous.chopped(4) + word(1)},
        {"ability list holding a bonus", customBytes.chopped(4) + word(1) + bonusObject},
        {"ability list that deletes", customBytes.chopped(8) + word(1) + word(0)},
    };
    for (const auto& [what, bytes] : cases)
        expectCleanFailure(bytes, what);
}
