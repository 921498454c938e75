#include "osi/containers/colistnode.h"

void OsiHashTableIterProtection::standOn(OsiListNode* target, bool gap)
{
	between = gap;
	if (target == node)
		return;
	if (node)
	{
		if (previousOnNode)
			previousOnNode->nextOnNode = nextOnNode;
		else
			node->iterators = nextOnNode;
		if (nextOnNode)
			nextOnNode->previousOnNode = previousOnNode;
	}
	node = target;
	previousOnNode = nullptr;
	nextOnNode = nullptr;
	if (node)
	{
		nextOnNode = node->iterators;
		if (nextOnNode)
			nextOnNode->previousOnNode = this;
		node->iterators = this;
	}
}

OsiListNode::OsiListNode(void* element) : nextNode(this), previousNode(this), nodeElement(element)
{}

OsiListNode::OsiListNode(OsiListNode* before, void* element) : OsiListNode(element)
{
	if (before)
		linkBefore(before);
}

OsiListNode::~OsiListNode()
{
	unlink();
	releaseIterators();
}

void OsiListNode::linkBefore(OsiListNode* before)
{
	nextNode = before;
	previousNode = before->previousNode;
	previousNode->nextNode = this;
	before->previousNode = this;
}

void OsiListNode::moveBefore(OsiListNode* before)
{
	previousNode->nextNode = nextNode;
	nextNode->previousNode = previousNode;
	linkBefore(before);
}

void OsiListNode::unlink()
{
	if (nextNode == this)
		return;
	while (iterators)
		iterators->standOn(nextNode, true);
	previousNode->nextNode = nextNode;
	nextNode->previousNode = previousNode;
	nextNode = this;
	previousNode = this;
}

void OsiListNode::releaseIterators()
{
	while (iterators)
		iterators->leave();
}
