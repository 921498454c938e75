#include "osi/osd/osdthreadid.h"

#include <pthread.h>

#include <cstring>

static_assert(sizeof(pthread_t) <= sizeof(OsdThreadId), "a thread handle fits an OsdThreadId");

OsdThreadId osdCurrentThread()
{
	const pthread_t self = pthread_self();
	OsdThreadId id = 0;
	std::memcpy(&id, &self, sizeof self);
	return id;
}
