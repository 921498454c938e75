// Thin wrappers of the platform's dynamic loader, on which framework modules
// are opened and their entries looked up.
#pragma once

// The library at path, opened lazily and locally; null when the loader refuses it.
void* MdlLoadLibrary(const char* path);
void MdlFreeLibrary(void* handle);
// The int argument (an ordinal on platforms that have them) is not used here.
void* MdlGetProcAddress(void* handle, const char* name, int);
// The loader's text for its last failure; null when there is none.
const char* MdlLoadError();
// The loader's handle of the module whose code calls this, without holding a
// reference on it.
void* osdOwnModuleHandle();
