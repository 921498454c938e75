// The service program's side of a service: listens on the address and port
// that the starting program passed and accepts its one connection.
#pragma once

#include "osi/services/coipcomms.h"

class OsiServiceProvider : public OsiIPCommsBase
{
public:
	// Opens with argv[1] as the address and argv[2] as the port when argc >= 3.
	OsiServiceProvider(int argc, char** argv, bool blocking);
	OsiServiceProvider(const char* address, const char* port, bool blocking);
	~OsiServiceProvider() override;

	// Listens and waits, polling, until the program connects; the accepted
	// connection is blocking as asked.
	bool open(const char* address, const char* port, bool blocking);
	// Tells the program that this end closes and closes the connection.
	void close();
};
