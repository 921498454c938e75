// Callback rings: newest member first, members that unlink themselves.
#include "osi/runtime/cocallback.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Log
{
	std::string calls;
};

struct Member
{
	char name;
	Log* log;
	bool claim = false;
	bool unlinkSelf = false;
	OsiCallbackInstance* self = nullptr;
};

bool record(void* data, void* message)
{
	auto* member = static_cast<Member*>(data);
	member->log->calls += member->name;
	if (message)
		member->log->calls += *static_cast<const char*>(message);
	if (member->unlinkSelf)
		member->self->unlink();
	return member->claim;
}

TEST(Callback, NotifyingAnEmptyRingReturnsFalse)
{
	OsiCallbackInstance head;
	EXPECT_FALSE(head.isLinked());
	EXPECT_FALSE(head.notify(nullptr));
}

TEST(Callback, NewestMemberIsCalledFirstUntilOneClaims)
{
	Log log;
	Member a{'A', &log}, b{'B', &log}, c{'C', &log};
	OsiCallbackInstance head, memberA(record, &a), memberB(record, &b), memberC(record, &c);
	OsiCallbackInstance silent(nullptr, nullptr);
	head.link(&memberA);
	head.link(&silent);
	head.link(&memberB);
	head.link(nullptr);
	const char message = '!';
	EXPECT_FALSE(head.notify(const_cast<char*>(&message)));
	EXPECT_EQ(log.calls, "B!A!");

	head.link(&memberC);
	c.claim = true;
	log.calls.clear();
	EXPECT_TRUE(head.notify(nullptr));
	EXPECT_EQ(log.calls, "C");
}

TEST(Callback, MemberThatUnlinksItselfDoesNotStopTheWalk)
{
	Log log;
	Member a{'A', &log}, b{'B', &log}, c{'C', &log};
	OsiCallbackInstance head, memberA(record, &a), memberB(record, &b), memberC(record, &c);
	b.self = &memberB;
	b.unlinkSelf = true;
	head.link(&memberA);
	head.link(&memberB);
	head.link(&memberC);
	EXPECT_FALSE(head.notify(nullptr));
	EXPECT_EQ(log.calls, "CBA");
	EXPECT_FALSE(memberB.isLinked());
	log.calls.clear();
	head.notify(nullptr);
	EXPECT_EQ(log.calls, "CA");
}

struct Unlinker
{
	Log* log;
	OsiCallbackInstance* self;
	OsiCallbackInstance* other;
};

bool unlinkSelfThenOther(void* data, void*)
{
	auto* member = static_cast<Unlinker*>(data);
	member->log->calls += 'U';
	member->self->unlink();
	member->other->unlink();
	return false;
}

TEST(Callback, MemberThatUnlinksItselfAndTheOneBeforeItDoesNotStopTheWalk)
{
	Log log;
	Member x{'X', &log}, d{'D', &log};
	OsiCallbackInstance head, memberX(record, &x), memberD(record, &d);
	Unlinker u{&log, nullptr, &memberX};
	OsiCallbackInstance memberU(unlinkSelfThenOther, &u);
	u.self = &memberU;
	head.link(&memberD);
	head.link(&memberU);
	head.link(&memberX);
	EXPECT_FALSE(head.notify(nullptr));
	EXPECT_EQ(log.calls, "XUD");
	log.calls.clear();
	head.notify(nullptr);
	EXPECT_EQ(log.calls, "D");
}

struct SelfDeleting
{
	Log* log;
	OsiCallbackInstance* self;
};

bool deleteSelf(void* data, void*)
{
	auto* member = static_cast<SelfDeleting*>(data);
	member->log->calls += 'D';
	delete member->self;
	return false;
}

TEST(Callback, MemberThatDeletesItselfDoesNotStopTheWalk)
{
	Log log;
	Member a{'A', &log}, c{'C', &log};
	OsiCallbackInstance head, memberA(record, &a), memberC(record, &c);
	SelfDeleting d{&log, nullptr};
	d.self = new OsiCallbackInstance(deleteSelf, &d);
	head.link(&memberA);
	head.link(d.self);
	head.link(&memberC);
	head.notify(nullptr);
	EXPECT_EQ(log.calls, "CDA");
	log.calls.clear();
	head.notify(nullptr);
	EXPECT_EQ(log.calls, "CA");
}

TEST(Callback, LinkingAMemberSplicesItsWholeRing)
{
	Log log;
	Member a{'A', &log}, b{'B', &log}, c{'C', &log};
	OsiCallbackInstance head, memberA(record, &a), memberB(record, &b), memberC(record, &c);
	head.link(&memberA);
	memberB.link(&memberC); // a ring B, C without a head
	head.link(&memberB);
	head.notify(nullptr);
	EXPECT_EQ(log.calls, "BCA");
}

TEST(Callback, CopiesAndDestroyedMembersLeaveTheRingIntact)
{
	Log log;
	Member a{'A', &log}, b{'B', &log};
	OsiCallbackInstance head, memberA(record, &a);
	head.link(&memberA);
	{
		OsiCallbackInstance memberB(record, &b);
		head.link(&memberB);
		OsiCallbackInstance copy(memberB);
		EXPECT_FALSE(copy.isLinked());
		head.notify(nullptr);
		EXPECT_EQ(log.calls, "BA");
	}
	log.calls.clear();
	head.notify(nullptr);
	EXPECT_EQ(log.calls, "A");
}

} // namespace
