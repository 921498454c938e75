#include "render_record.h"

#include "pending_file.h"

#include <sys/stat.h>

#include <fstream>
#include <optional>
#include <sstream>

namespace velora_render {
namespace {

std::string recordPath(const std::string& output)
{
	const auto slash = output.find_last_of('/');
	const std::size_t name = slash == std::string::npos ? 0 : slash + 1;
	return output.substr(0, name) + "." + output.substr(name) + ".render";
}

std::optional<timespec> modified(const std::string& path)
{
	struct stat info = {};
	if (stat(path.c_str(), &info) != 0)
		return std::nullopt;
	return info.st_mtim;
}

bool newer(const timespec& a, const timespec& b)
{
	return a.tv_sec != b.tv_sec ? a.tv_sec > b.tv_sec : a.tv_nsec > b.tv_nsec;
}

} // namespace

std::string renderSettings(const Options& options)
{
	const PanOption& pan = options.pan;
	std::ostringstream text;
	text.precision(17);
	text << "pan " << static_cast<int>(pan.kind) << ' ' << pan.from << ' ' << pan.to << ' '
	     << pan.automationPath << "\nstate " << options.loadStatePath << "\nblock "
	     << options.blockSize << "\nencoding " << static_cast<int>(options.encoding) << "\nplugin "
	     << options.pluginPath << '\n';
	return text.str();
}

bool isUpToDate(const BatchFile& file, const Options& options, const std::string& settings)
{
	const auto output = modified(file.output);
	if (!output)
		return false;
	for (const std::string& source :
	     {file.input, options.pan.automationPath, options.loadStatePath})
	{
		if (source.empty())
			continue;
		const auto time = modified(source);
		if (!time || !newer(*output, *time))
			return false;
	}
	std::ifstream in(recordPath(file.output), std::ios::binary);
	if (!in)
		return false;
	std::stringstream recorded;
	recorded << in.rdbuf();
	return recorded.str() == settings;
}

void recordSettings(const std::string& output, const std::string& settings)
{
	PendingFile record(recordPath(output), "render record");
	record.write(settings.data(), settings.size());
	record.commit();
}

} // namespace velora_render
