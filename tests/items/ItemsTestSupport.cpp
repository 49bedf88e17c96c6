#include "ItemsTestSupport.h"


namespace itemstest {

FC_IMPLEMENT_CLASS(TestRecord, "FCObject", nullptr)

int TestRecord::sLive = 0;

TestRecord::TestRecord() {
    ++sLive;
}

TestRecord::TestRecord(const QUuid& guid, qint32 value) : mGuid(guid), mValue(value) {
    ++sLive;
}

TestRecord::TestRecord(const TestRecord& other)
    : FCObject(other), mGuid(other.mGuid), mValue(other.mValue) {
    ++sLive;
}

TestRecord::~TestRecord() {
    --sLive;
}

void TestRecord::Serialize(FCArchive& archive) {
    archive.Transfer(mGuid);
    archive.Transfer(mValue);
}

Ref<TestRecord> makeRecord(int n) {
    return Ref<TestRecord>(new TestRecord(guid(n), n * 10));
}

bool sameRecord(const FCObject* a, const FCObject* b) {
    const auto* left = FCDynamicCast<TestRecord>(a);
    const auto* right = FCDynamicCast<TestRecord>(b);
    return left && right && left->mGuid == right->mGuid && left->mValue == right->mValue;
}

QUuid guid(int n) {
    return QUuid(quint32(0x10000000 + n), 0x2000, 0x3000, 0x40, 0x50, 0x60, 0x70, 0x80, 0x90, 0xA0,
                 quint8(n));
}

} // namespace itemstest
