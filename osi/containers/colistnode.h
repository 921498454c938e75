// The node of the framework's doubly linked rings (lists and hash-table
// buckets) and the record by which a node knows the iterators standing on it,
// so that removing a node never leaves an iterator dangling.
#pragma once

class OsiListNode;

// Base of every iterator over list nodes: its position, and its link in the
// chain of iterators of the node it stands on. When that node is removed the
// iterator steps into the gap the node leaves, just before the node that
// followed it, so that the next step forward yields that node.
class OsiHashTableIterProtection
{
public:
	OsiHashTableIterProtection() = default;
	OsiHashTableIterProtection(const OsiHashTableIterProtection&) = delete;
	OsiHashTableIterProtection& operator=(const OsiHashTableIterProtection&) = delete;

protected:
	~OsiHashTableIterProtection() { leave(); }

	// Stands on node (null: on nothing), in the gap before it when between.
	void standOn(OsiListNode* node, bool between = false);
	void leave() { standOn(nullptr); }
	OsiListNode* position() const { return node; }
	bool inGap() const { return between; }

private:
	friend class OsiListNode;

	OsiListNode* node = nullptr;
	bool between = false;
	OsiHashTableIterProtection* nextOnNode = nullptr;
	OsiHashTableIterProtection* previousOnNode = nullptr;
};

class OsiListNode
{
public:
	// A node alone: a ring of one.
	explicit OsiListNode(void* element);
	// A node linked in front of before, that is at the tail of the ring whose
	// head is before.
	OsiListNode(OsiListNode* before, void* element);
	// Unlinks the node; iterators standing on it move into the gap.
	virtual ~OsiListNode();
	OsiListNode(const OsiListNode&) = delete;
	OsiListNode& operator=(const OsiListNode&) = delete;

	OsiListNode* next() const { return nextNode; }
	OsiListNode* previous() const { return previousNode; }
	void* element() const { return nodeElement; }

	// Links this node (a ring of one) in front of before.
	void linkBefore(OsiListNode* before);
	// Moves the node in front of before; the iterators on it stay on it.
	void moveBefore(OsiListNode* before);
	// Takes the node out of its ring, moving the iterators on it into the gap.
	void unlink();
	// Sends the iterators on this node off the container, which is being emptied.
	void releaseIterators();

private:
	friend class OsiHashTableIterProtection;

	OsiListNode* nextNode;
	OsiListNode* previousNode;
	OsiHashTableIterProtection* iterators = nullptr;
	void* nodeElement;
};
