// Leaks that are not ours: fontconfig keeps a few blocks of its configuration
// for the life of the process without a pointer the leak checker can see.
// The leak checker's runtime looks this up by name: it must stay visible.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
	return "leak:libfontconfig.so\n";
}
