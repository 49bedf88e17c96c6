#include "FrameworkTestClasses.h"

#include <gtest/gtest.h>

TEST(FCObjectTest, BornWithOneReferenceAndDeletedWhenTheLastIsReleased) {
    const int before = TestCounted::sLive;
    auto* object = new TestCounted(4);
    EXPECT_EQ(object->GetRetainCount(), 1);
    EXPECT_EQ(TestCounted::sLive, before + 1);

    object->Retain();
    object->Retain();
    EXPECT_EQ(object->GetRetainCount(), 3);

    object->Release();
    EXPECT_EQ(object->GetRetainCount(), 2);
    object->Release();
    EXPECT_EQ(object->GetRetainCount(), 1);
    EXPECT_EQ(TestCounted::sLive, before + 1);

    object->Release();
    EXPECT_EQ(TestCounted::sLive, before);
}

TEST(FCObjectTest, CopiesAndClonesStartWithTheirOwnSingleReference) {
    const int before = TestCounted::sLive;
    auto* original = new TestCounted(9);
    original->Retain();

    auto* clone = static_cast<TestCounted*>(original->Clone());
    ASSERT_NE(clone, nullptr);
    EXPECT_NE(clone, original);
    EXPECT_EQ(clone->GetRetainCount(), 1);
    EXPECT_EQ(clone->mValue, 9);

    TestCounted copy(*original);
    EXPECT_EQ(copy.GetRetainCount(), 1);

    // Assignment copies the value, never the other object's count.
    TestCounted assigned(1);
    assigned = *original;
    EXPECT_EQ(assigned.mValue, 9);
    EXPECT_EQ(assigned.GetRetainCount(), 1);
    EXPECT_EQ(original->GetRetainCount(), 2);

    clone->Release();
    original->Release();
    original->Release();
    EXPECT_EQ(TestCounted::sLive, before + 2); // copy and assigned live on the stack
}

TEST(FCObjectTest, DerivedObjectsAreDeletedThroughTheVirtualDestructor) {
    const int before = TestCounted::sLive;
    FCObject* object = new TestGrandChild;
    object->Release();
    EXPECT_EQ(TestCounted::sLive, before);
}

TEST(FCObjectTest, DynamicCastFollowsTheRegistry) {
    auto* derived = new TestDerived(1, "x");
    FCObject* asObject = derived;
    EXPECT_EQ(FCDynamicCast<TestCounted>(asObject), derived);
    EXPECT_EQ(FCDynamicCast<TestDerived>(asObject), derived);
    EXPECT_EQ(FCDynamicCast<TestGrandChild>(asObject), nullptr);
    EXPECT_EQ(FCDynamicCast<TestFields>(asObject), nullptr);
    EXPECT_EQ(FCDynamicCast<TestCounted>(static_cast<FCObject*>(nullptr)), nullptr);
    const FCObject* constObject = derived;
    EXPECT_EQ(FCDynamicCast<TestDerived>(constObject), derived);
    derived->Release();
}
