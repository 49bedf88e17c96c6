#include "FrameworkTestClasses.h"

#include <gtest/gtest.h>

namespace {

struct KindCase {
    const char* label;
    FCObject* (*make)();
    const FCClassInfo* info;
    bool expected;
};

FCObject* makeCounted() {
    return new TestCounted;
}
FCObject* makeDerived() {
    return new TestDerived;
}
FCObject* makeGrandChild() {
    return new TestGrandChild;
}

} // namespace

TEST(FCClassInfoTest, IsKindOfFollowsBothBasesUpTheChain) {
    const KindCase cases[] = {
        {"own class", makeCounted, TestCounted::GetStaticClassInfo(), true},
        {"root", makeCounted, FCObject::GetStaticClassInfo(), true},
        {"base is not a subclass", makeCounted, TestDerived::GetStaticClassInfo(), false},
        {"unrelated", makeCounted, TestFields::GetStaticClassInfo(), false},
        {"null info", makeCounted, nullptr, false},
        {"first base", makeDerived, TestCounted::GetStaticClassInfo(), true},
        {"no second base", makeDerived, &TestMixin::mClassTestMixin, false},
        {"two links up", makeGrandChild, TestCounted::GetStaticClassInfo(), true},
        {"root three links up", makeGrandChild, FCObject::GetStaticClassInfo(), true},
        {"second base", makeGrandChild, &TestMixin::mClassTestMixin, true},
        {"base of the second base", makeGrandChild, &TestMixinRoot::mClassTestMixinRoot, true},
        {"sibling", makeGrandChild, TestFields::GetStaticClassInfo(), false},
    };
    for (const KindCase& c : cases) {
        SCOPED_TRACE(c.label);
        FCObject* object = c.make();
        EXPECT_EQ(object->IsKindOf(c.info), c.expected);
        object->Release();
    }
}

TEST(FCClassInfoTest, GetClassInfoAGivesTheMostDerivedClass) {
    TestGrandChild child;
    const FCObject& asObject = child;
    EXPECT_EQ(asObject.GetClassInfoA(), TestGrandChild::GetStaticClassInfo());
    EXPECT_STREQ(asObject.GetClassInfoA()->GetClassName(), "TestGrandChild");
    EXPECT_STREQ(asObject.GetClassInfoA()->GetBaseName(), "TestDerived");
    EXPECT_STREQ(asObject.GetClassInfoA()->GetSecondBaseName(), "TestMixin");
    EXPECT_EQ(asObject.GetClassInfoA()->GetObjectSize(), int(sizeof(TestGrandChild)));
}

TEST(FCClassInfoTest, CreateDynamicObjectByName) {
    struct Case {
        const char* name;
        const FCClassInfo* expected; // null: no object
    };
    const Case cases[] = {
        {"TestCounted", TestCounted::GetStaticClassInfo()},
        {"TestDerived", TestDerived::GetStaticClassInfo()},
        {"TestGrandChild", TestGrandChild::GetStaticClassInfo()},
        {"TestAbstract", nullptr},
        {"FCObject", nullptr},
        {"TestMixin", nullptr},
        {"NoSuchClass", nullptr},
        {"testcounted", nullptr}, // names are exact
        {"TestCountedX", nullptr},
        {"", nullptr},
        {nullptr, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name ? c.name : "(null)");
        const int before = TestCounted::sLive;
        FCObject* object = FCCreateDynamicObject(c.name);
        if (!c.expected) {
            EXPECT_EQ(object, nullptr);
            continue;
        }
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->GetClassInfoA(), c.expected);
        EXPECT_EQ(object->GetRetainCount(), 1);
        EXPECT_EQ(TestCounted::sLive, before + 1);
        object->Release();
        EXPECT_EQ(TestCounted::sLive, before);
    }
}
