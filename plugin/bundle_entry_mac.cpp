// The macOS bundle entry and exit. Linux and Windows hosts use the SDK's
// module entry instead; this unit is only built for macOS.
#include "pluginterfaces/base/fplatform.h"

#if SMTG_OS_MACOS
#include <CoreFoundation/CoreFoundation.h>

bool InitModule();
bool DeinitModule();

// The module handle the SDK's editor support reads, and the bundle's path.
void* moduleHandle = nullptr;
static char bundlePath[2048] = {};

extern "C" {

SMTG_EXPORT_SYMBOL bool bundleEntry(CFBundleRef bundle)
{
	if (!bundle)
		return false;
	CFRetain(bundle);
	moduleHandle = bundle;
	if (CFURLRef url = CFBundleCopyBundleURL(bundle))
	{
		CFURLGetFileSystemRepresentation(url, true, reinterpret_cast<UInt8*>(bundlePath),
		                                 sizeof(bundlePath));
		CFRelease(url);
	}
	return InitModule();
}

SMTG_EXPORT_SYMBOL bool bundleExit()
{
	const bool result = DeinitModule();
	if (moduleHandle)
		CFRelease(static_cast<CFBundleRef>(moduleHandle));
	moduleHandle = nullptr;
	return result;
}

} // extern "C"
#endif
