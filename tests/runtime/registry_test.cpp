// The class registry: the prefix rule, versions side by side, the keyless
// second pass, walks, and registration racing creation on several threads.
#include "osi/runtime/modregistry.h"

#include <gtest/gtest.h>

#include <atomic>
#include <set>
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
	Descriptor(const char* name, int version, bool makesNothing = false)
	: OsiClass(name, version),
	  makesNothing(makesNothing)
	{}
	void* create() const override
	{
		++calls;
		if (makesNothing)
			return nullptr;
		return static_cast<MdlInterface*>(
		    new Made(std::string(className()) + " " + std::to_string(classVersion())));
	}

	bool makesNothing;
	mutable int calls = 0;
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

TEST(ClassRegistry, AClassAnswersRequestsForNamesItBeginsInItsVersion)
{
	OsiClassRegistry::flush();
	EXPECT_EQ(made("Foo", 1), "null");
	Descriptor foo("Foo", 1), one("Widget", 1), two("Widget", 2);
	const struct
	{
		const char* name;
		int version;
		const char* made;
	} cases[] = {{"Foo", 1, "Foo 1"},       {"FooBar", 1, "Foo 1"}, {"Fo", 1, "null"},
	             {"Foo", 2, "null"},        {nullptr, 1, "null"},   {"Widget", 2, "Widget 2"},
	             {"Widget", 1, "Widget 1"}, {"Widget", 3, "null"}};
	for (const auto& c : cases)
		EXPECT_EQ(made(c.name, c.version), c.made) << (c.name ? c.name : "null") << c.version;
	int count = 0;
	OsiClassRegistry::forAllNamedClassesDo(
	    "Widget", [](const MdlClass*, void* n) { return ++*static_cast<int*>(n), false; }, &count);
	EXPECT_EQ(count, 2);
	EXPECT_EQ(OsiClassRegistry::forAllClassesDo(nullptr, nullptr), nullptr);
}

TEST(ClassRegistry, AClassThatMadeNothingIsNotAskedAgainButOthersAre)
{
	Descriptor notice("Notice", 0, true);
	EXPECT_EQ(made("Notice", 0), "null");
	EXPECT_EQ(notice.calls, 1);
	// Under another name, only the keyless pass finds it, once.
	EXPECT_EQ(made("NoticeBoard", 0), "null");
	EXPECT_EQ(notice.calls, 2);
	// Whichever of the two the keyless pass meets first, Foo makes it.
	Descriptor fooBar("FooBar", 1, true), foo("Foo", 1);
	EXPECT_EQ(made("FooBar", 1), "Foo 1");
}

// Collects the names walked past; stops at the name in front, if any.
bool collect(const MdlClass* theClass, void* data)
{
	auto& seen = *static_cast<std::vector<std::string>*>(data);
	seen.push_back(theClass->className());
	return seen.back() == seen.front();
}

TEST(ClassRegistry, WalksVisitEveryClassOnceAndStopAtTheFirstTrue)
{
	Descriptor a("Alpha", 1), b("Beta", 1), c("Gamma", 1), unnamed(nullptr, 1); // not registered
	std::vector<std::string> seen{"none"};
	EXPECT_EQ(OsiClassRegistry::forAllClassesDo(collect, &seen), nullptr);
	EXPECT_EQ(std::multiset<std::string>(seen.begin() + 1, seen.end()),
	          (std::multiset<std::string>{"Alpha", "Beta", "Gamma"}));
	seen = {"Beta"};
	const MdlClass* found = OsiClassRegistry::forAllClassesDo(collect, &seen);
	EXPECT_EQ(found, &b);
	EXPECT_EQ(seen.back(), "Beta") << "the walk went on";
}

TEST(ClassDescriptor, MatchingIsAPrefixRuleOverTheFirst1024Characters)
{
	const std::string longName(1100, 'x');
	std::string differsLate = longName, differsEarly = longName;
	differsLate[1050] = differsEarly[1000] = 'y';
	const struct
	{
		const char *name, *request;
		bool match;
	} cases[] = {{"Foo", "foo", false},
	             {"", "", true},
	             {"", "Foo", false},
	             {nullptr, "Foo", false},
	             {longName.c_str(), differsLate.c_str(), true},
	             {longName.c_str(), differsEarly.c_str(), false}};
	for (const auto& c : cases)
		EXPECT_EQ(OsiClass::isMatch(c.name, c.request), c.match) << &c - cases;
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
