#include "osi/osd/osdmodule.h"

#include <dlfcn.h>

void* MdlLoadLibrary(const char* path)
{
	return dlopen(path, RTLD_LAZY | RTLD_LOCAL);
}

void MdlFreeLibrary(void* handle)
{
	if (handle)
		dlclose(handle);
}

void* MdlGetProcAddress(void* handle, const char* name, int)
{
	return handle && name ? dlsym(handle, name) : nullptr;
}

const char* MdlLoadError()
{
	return dlerror();
}

void* osdOwnModuleHandle()
{
	Dl_info info;
	if (!dladdr(reinterpret_cast<void*>(&osdOwnModuleHandle), &info) || !info.dli_fname)
		return nullptr;
	// RTLD_NOLOAD finds the library only if it is loaded; the main program is
	// known to the loader under no name. The reference taken is given back at
	// once, or the module could never unload.
	void* handle = dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD);
	if (!handle)
		handle = dlopen(nullptr, RTLD_LAZY);
	if (handle)
		dlclose(handle);
	return handle;
}
