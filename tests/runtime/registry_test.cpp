// The class registry: the prefix rule, versions side by side, the keyless
// second pass, walks, and registration racing creation on several threads.
#include "osi/runtime/modregistry.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace {

// An object that remembers which descriptor made it.
class Made : public MdlInterface
{
public:
	explicit Made(std::string by) : by(std::move(by)) {}
	const char* className() const override { return by.c_str(); }
	int classVersion() const override { return 0; }
	std::string by;
};

class Descriptor : public OsiClass
{
public:
	Descriptor(const char* name, int version, bool makesNothing = false,
	           const char* versionName = nullptr)
	: OsiClass(name, version, false, versionName),
	  makesNothing(makesNothing)
	{}
	void* create() const override
	{
		if (makesNothing)
			return nullptr;
		return static_cast<MdlInterface*>(
		    new Made(std::string(className()) + " " + std::to_string(classVersion())));
	}

private:
	bool makesNothing;
};

// What create() made, as "name version", or "null"; the object is released.
std::string made(const char* name, int version)
{
	auto* object = static_cast<MdlInterface*>(OsiClassRegistry::create(name, version));
	if (!object)
		return "null";
	std::string by = object->className();
	mdlRelease(object);
	return by;
}

TEST(ClassRegistry, WithoutAnyDescriptorEverythingIsNull)
{
	OsiClassRegistry::flush();
	EXPECT_EQ(OsiClassRegistry::create("Foo", 1), nullptr);
	EXPECT_EQ(
	    OsiClassRegistry::forAllClassesDo([](const MdlClass*, void*) { return true; }, nullptr),
	    nullptr);
	EXPECT_EQ(OsiClassRegistry::forAllNamedClassesDo(
	              "Foo", [](const MdlClass*, void*) { return true; }, nullptr),
	          nullptr);
	Descriptor foo("Foo", 1);
	EXPECT_EQ(made("Foo", 1), "Foo 1");
	EXPECT_EQ(OsiClassRegistry::forAllClassesDo(nullptr, nullptr), nullptr);
}

TEST(ClassRegistry, AClassAnswersRequestsForNamesItBegins)
{
	Descriptor foo("Foo", 1);
	EXPECT_EQ(made("Foo", 1), "Foo 1");
	EXPECT_EQ(made("FooBar", 1), "Foo 1") << "found by the keyless pass";
	EXPECT_EQ(made("Fo", 1), "null");
	EXPECT_EQ(made("Foo", 2), "null");
	EXPECT_EQ(made(nullptr, 1), "null");
}

TEST(ClassRegistry, VersionsOfOneNameLiveSideBySide)
{
	Descriptor one("Widget", 1);
	Descriptor two("Widget", 2);
	EXPECT_EQ(made("Widget", 2), "Widget 2");
	EXPECT_EQ(made("Widget", 1), "Widget 1");
	EXPECT_EQ(made("Widget", 3), "null");
	int count = 0;
	OsiClassRegistry::forAllNamedClassesDo(
	    "Widget", [](const MdlClass*, void* n) { return ++*static_cast<int*>(n), false; }, &count);
	EXPECT_EQ(count, 2);
}

TEST(ClassRegistry, NullFromTheExactNameFallsThroughToTheKeylessPass)
{
	// Foo lies in bucket 25 and FooBar in bucket 58 of the 100, so the keyless
	// pass meets Foo first.
	ASSERT_EQ(OsiStringHashTableKey("Foo", true).hash(100), 25);
	ASSERT_EQ(OsiStringHashTableKey("FooBar", true).hash(100), 58);
	Descriptor fooBar("FooBar", 1, true);
	EXPECT_EQ(made("FooBar", 1), "null");
	Descriptor foo("Foo", 1);
	EXPECT_EQ(made("FooBar", 1), "Foo 1");
}

// Counts the calls of create(); makes nothing.
class CountingDescriptor : public OsiClass
{
public:
	using OsiClass::OsiClass;
	void* create() const override
	{
		++calls;
		return nullptr;
	}
	mutable int calls = 0;
};

TEST(ClassRegistry, AClassThatMadeNothingIsNotAskedAgain)
{
	CountingDescriptor notice("Notice", 0);
	EXPECT_EQ(OsiClassRegistry::create("Notice", 0), nullptr);
	EXPECT_EQ(notice.calls, 1);
	// Under another name, only the keyless pass finds it, once.
	EXPECT_EQ(OsiClassRegistry::create("NoticeBoard", 0), nullptr);
	EXPECT_EQ(notice.calls, 2);
}

TEST(ClassRegistry, DescriptorsLeaveTheRegistryWithTheirLifetime)
{
	{
		Descriptor passing("Passing", 1);
		EXPECT_EQ(made("Passing", 1), "Passing 1");
	}
	EXPECT_EQ(made("Passing", 1), "null");
	Descriptor unnamed(nullptr, 1);
	EXPECT_EQ(OsiClassRegistry::forAllClassesDo(
	              [](const MdlClass* c, void*) { return c->className() == nullptr; }, nullptr),
	          nullptr);
}

TEST(ClassRegistry, WalksStopAtTheFirstTrue)
{
	Descriptor a("Alpha", 1), b("Beta", 1), c("Gamma", 1);
	std::vector<std::string> seen;
	const MdlClass* found = OsiClassRegistry::forAllClassesDo(
	    [](const MdlClass* theClass, void* data) {
		    static_cast<std::vector<std::string>*>(data)->push_back(theClass->className());
		    return std::string(theClass->className()) == "Beta";
	    },
	    &seen);
	ASSERT_NE(found, nullptr);
	EXPECT_STREQ(found->className(), "Beta");
	EXPECT_EQ(seen.back(), "Beta");
	EXPECT_LE(seen.size(), 3u);
}

TEST(ClassDescriptor, NamesVersionNamesAndSequence)
{
	Descriptor first("Named", 4, false, "Release");
	Descriptor second("Other", 1);
	EXPECT_STREQ(first.className(), "Named");
	EXPECT_EQ(first.classVersion(), 4);
	EXPECT_STREQ(first.versionName(), "Release");
	EXPECT_EQ(second.versionName(), nullptr);
	EXPECT_TRUE(first.hasVersionName("Release candidate"));
	EXPECT_FALSE(first.hasVersionName("Rel"));
	EXPECT_FALSE(first.hasVersionName(nullptr));
	EXPECT_FALSE(second.hasVersionName("Release"));
	EXPECT_TRUE(first.isClass("NamedThing", 4));
	EXPECT_FALSE(first.isClass("Named", 5));
	EXPECT_GT(second.sequenceNumber(), first.sequenceNumber());
}

TEST(ClassDescriptor, MatchingIsAPrefixRuleOverTheFirst1024Characters)
{
	EXPECT_TRUE(OsiClass::isMatch("Foo", "FooBar"));
	EXPECT_TRUE(OsiClass::isMatch("Foo", "Foo"));
	EXPECT_FALSE(OsiClass::isMatch("FooBar", "Foo"));
	EXPECT_FALSE(OsiClass::isMatch("Foo", "foo"));
	EXPECT_TRUE(OsiClass::isMatch("", ""));
	EXPECT_FALSE(OsiClass::isMatch("", "Foo"));
	EXPECT_FALSE(OsiClass::isMatch(nullptr, "Foo"));
	EXPECT_FALSE(OsiClass::isMatch("Foo", nullptr));
	const std::string longName(1100, 'x');
	std::string differsLate = longName;
	differsLate[1050] = 'y';
	std::string differsEarly = longName;
	differsEarly[1000] = 'y';
	EXPECT_TRUE(OsiClass::isMatch(longName.c_str(), differsLate.c_str()));
	EXPECT_FALSE(OsiClass::isMatch(longName.c_str(), differsEarly.c_str()));
	EXPECT_EQ(OsiClass::length("abc"), 3);
	EXPECT_EQ(OsiClass::length(""), 0);
	EXPECT_EQ(OsiClass::length(nullptr), 0);
}

TEST(ClassRegistry, RegistrationAndCreationRaceSafely)
{
	Descriptor stable("Stable", 1);
	std::atomic<int> created{0};
	std::vector<std::thread> threads;
	for (int t = 0; t < 4; ++t)
		threads.emplace_back([t, &created] {
			for (int i = 0; i < 200; ++i)
			{
				if (t % 2)
				{
					const std::string name = "Transient" + std::to_string(t);
					Descriptor transient(name.c_str(), i);
					if (made(name.c_str(), i) == name + " " + std::to_string(i))
						++created;
				}
				else if (made("Stable", 1) == "Stable 1")
					++created;
			}
		});
	for (std::thread& thread : threads)
		thread.join();
	EXPECT_EQ(created, 800);
}

} // namespace
