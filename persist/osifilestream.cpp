#include "persist/osifilestream.h"

OsiFileStream::~OsiFileStream()
{
	close();
}

bool OsiFileStream::open(const char* path, const char* mode)
{
	close();
	if (!path || !mode)
		return false;
	file = std::fopen(path, mode);
	owned = true;
	resetLayout();
	return file != nullptr;
}

bool OsiFileStream::openDevice(FILE* device)
{
	close();
	file = device;
	owned = false;
	resetLayout();
	return file != nullptr;
}

bool OsiFileStream::openTemporary()
{
	close();
	file = std::tmpfile();
	owned = true;
	resetLayout();
	return file != nullptr;
}

bool OsiFileStream::close()
{
	if (!file)
		return false;
	const bool ok = owned ? std::fclose(file) == 0 : std::fflush(file) == 0;
	file = nullptr;
	return ok;
}

bool OsiFileStream::readBytes(void* data, size_t size)
{
	return file && std::fread(data, 1, size, file) == size;
}

bool OsiFileStream::writeBytes(const void* data, size_t size)
{
	return file && std::fwrite(data, 1, size, file) == size;
}

bool OsiFileStream::seek(long long position)
{
	return file && position >= 0 && fseeko(file, static_cast<off_t>(position), SEEK_SET) == 0;
}

bool OsiFileStream::seekEnd()
{
	return file && fseeko(file, 0, SEEK_END) == 0;
}

bool OsiFileStream::tell(long long& position)
{
	if (!file)
		return false;
	const off_t where = ftello(file);
	if (where < 0)
		return false;
	position = where;
	return true;
}
