// Callback rings: newest member first, a claim ends the walk, and members that
// unlink or delete themselves (or others) during it.
#include "osi/runtime/cocallback.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>

namespace {

// Members that log their name (and the message's character) when called and
// then do what they were told.
struct Ring
{
	struct Member
	{
		char name;
		Ring* ring;
		bool claim, unlinkSelf, deleteSelf;
		OsiCallbackInstance* alsoUnlink;
		OsiCallbackInstance* self;
	};

	static bool called(void* data, void* message)
	{
		auto* m = static_cast<Member*>(data);
		m->ring->log += m->name;
		if (message)
			m->ring->log += *static_cast<const char*>(message);
		if (m->unlinkSelf)
			m->self->unlink();
		if (m->alsoUnlink)
			m->alsoUnlink->unlink();
		if (m->deleteSelf)
			delete m->self;
		return m->claim;
	}

	OsiCallbackInstance* add(char name, bool claim = false, bool unlinkSelf = false,
	                         bool deleteSelf = false, OsiCallbackInstance* alsoUnlink = nullptr)
	{
		members.push_back({name, this, claim, unlinkSelf, deleteSelf, alsoUnlink, nullptr});
		auto* instance = new OsiCallbackInstance(called, &members.back());
		members.back().self = instance;
		if (!deleteSelf)
			owned.emplace_back(instance);
		return instance;
	}

	OsiCallbackInstance head;
	std::string log;
	std::deque<Member> members;
	std::deque<std::unique_ptr<OsiCallbackInstance>> owned;
};

TEST(Callback, WalksTheRingNewestFirst)
{
	const struct
	{
		const char* what;
		std::function<void(Ring&)> build;
		const char* first; // log of the first walk (message '!')
		bool claimed;
		const char* second; // log of a second walk (no message)
	} cases[] = {
	    {"a silent member and a null link",
	     [](Ring& r) {
		     OsiCallbackInstance* a = r.add('A');
		     r.owned.emplace_back(new OsiCallbackInstance(nullptr, nullptr));
		     r.head.link(a), r.head.link(r.owned.back().get()), r.head.link(r.add('B'));
		     r.head.link(nullptr);
	     },
	     "B!A!", false, "BA"},
	    {"a claim ends the walk",
	     [](Ring& r) { r.head.link(r.add('A')), r.head.link(r.add('B', true)); }, "B!", true, "B"},
	    {"a member unlinks itself",
	     [](Ring& r) {
		     r.head.link(r.add('A')), r.head.link(r.add('B', false, true)), r.head.link(r.add('C'));
	     },
	     "C!B!A!", false, "CA"},
	    {"a member unlinks itself and the one called before it",
	     [](Ring& r) {
		     OsiCallbackInstance* x = r.add('X');
		     r.head.link(r.add('D')), r.head.link(r.add('U', false, true, false, x)),
		         r.head.link(x);
	     },
	     "X!U!D!", false, "D"},
	    {"a member deletes itself",
	     [](Ring& r) {
		     r.head.link(r.add('A')), r.head.link(r.add('D', false, false, true));
		     r.head.link(r.add('C'));
	     },
	     "C!D!A!", false, "CA"},
	    {"linking a member splices its whole ring",
	     [](Ring& r) {
		     OsiCallbackInstance* b = r.add('B');
		     r.head.link(r.add('A')), b->link(r.add('C')), r.head.link(b);
	     },
	     "B!C!A!", false, "BCA"},
	    {"a destroyed member leaves the ring",
	     [](Ring& r) {
		     r.head.link(r.add('A')), r.head.link(r.add('B'));
		     r.owned.pop_back();
	     },
	     "A!", false, "A"},
	};
	for (const auto& c : cases)
	{
		Ring ring;
		c.build(ring);
		const char message = '!';
		EXPECT_EQ(ring.head.notify(const_cast<char*>(&message)), c.claimed) << c.what;
		EXPECT_EQ(ring.log, c.first) << c.what;
		ring.log.clear();
		ring.head.notify(nullptr);
		EXPECT_EQ(ring.log, c.second) << c.what;
	}
	OsiCallbackInstance head, copied(Ring::called, nullptr);
	head.link(&copied);
	EXPECT_FALSE(OsiCallbackInstance(copied).isLinked()); // a copy joins no ring
}

} // namespace
