// The service transport over a loopback TCP connection against a plain
// blocking write/read loop moving the same bytes over the same kind of
// connection, in one run. A thread sends 16-byte or 4 KiB messages, alone or
// in brackets of 64, while the benchmark thread receives them all. The table
// at the end gives messages per second, MB/s and the ratio to the plain loop
// (goal: batched 4 KiB messages at 0.5 or more of the plain loop's MB/s).
#include "osi/services/coipcomms.h"

#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace {

// About 8 MiB of message data per iteration for 4 KiB messages, 1 MiB for
// 16-byte ones (whose cost is per message, not per byte).
int messagesFor(int size)
{
	return size >= 4096 ? 2048 : 65536;
}

struct Result
{
	double itemsPerSecond = 0;
	double bytesPerSecond = 0;
};

std::map<std::string, Result> results;

// The two ends of one loopback TCP connection, with Nagle's delay off as the
// transport has it.
struct Connection
{
	int sending = -1;
	int receiving = -1;

	Connection()
	{
		const int listener = socket(AF_INET, SOCK_STREAM, 0);
		sockaddr_in address{};
		address.sin_family = AF_INET;
		address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
		socklen_t length = sizeof address;
		bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address);
		listen(listener, 1);
		getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length);
		sending = socket(AF_INET, SOCK_STREAM, 0);
		connect(sending, reinterpret_cast<sockaddr*>(&address), sizeof address);
		receiving = accept(listener, nullptr, nullptr);
		close(listener);
		const int on = 1;
		setsockopt(sending, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
		setsockopt(receiving, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
	}
	~Connection()
	{
		close(sending);
		close(receiving);
	}
};

void sendMessages(OsiIPCommsBase& sender, int size, int count, int batch)
{
	const std::vector<char> data(static_cast<size_t>(size), 'm');
	for (int sent = 0; sent < count;)
	{
		sender.beginSend();
		for (int i = 0; i < batch && sent < count; ++i, ++sent)
			sender.send(sent & 0xFFFF, size, data.data());
		sender.endSend();
	}
}

void BM_Transport(benchmark::State& state, int size, int batch)
{
	const int count = messagesFor(size);
	Connection connection;
	OsiIPCommsBase sender(false);
	OsiIPCommsBase receiver(false);
	sender.attachSocket(connection.sending, true);
	receiver.attachSocket(connection.receiving, true);
	connection.sending = connection.receiving = -1;
	for (auto _ : state)
	{
		std::thread sending([&] { sendMessages(sender, size, count, batch); });
		int id = 0, length = 0, remaining = 0;
		void* data = nullptr;
		for (int received = 0;
		     received < count && receiver.isConnected() && !receiver.isPeerClosed();)
		{
			if (receiver.receive(id, length, data, remaining))
				++received;
		}
		sending.join();
	}
	state.SetItemsProcessed(state.iterations() * count);
	state.SetBytesProcessed(state.iterations() * count * static_cast<int64_t>(size));
}

void BM_PlainSocket(benchmark::State& state, int size)
{
	const int count = messagesFor(size);
	const int64_t total = static_cast<int64_t>(count) * size;
	Connection connection;
	std::vector<char> buffer(64 << 10);
	for (auto _ : state)
	{
		std::thread sending([&] {
			const std::vector<char> data(static_cast<size_t>(size), 'm');
			for (int i = 0; i < count; ++i)
			{
				for (ssize_t done = 0; done < size;)
				{
					const ssize_t n = write(connection.sending, data.data() + done,
					                        static_cast<size_t>(size - done));
					if (n <= 0)
						return;
					done += n;
				}
			}
		});
		for (int64_t received = 0; received < total;)
		{
			const ssize_t n = read(connection.receiving, buffer.data(), buffer.size());
			if (n <= 0)
				break;
			received += n;
		}
		sending.join();
	}
	state.SetItemsProcessed(state.iterations() * count);
	state.SetBytesProcessed(state.iterations() * total);
}

class RateReporter : public benchmark::ConsoleReporter
{
public:
	void ReportRuns(const std::vector<Run>& runs) override
	{
		for (const auto& run : runs)
		{
			if (run.run_type != Run::RT_Iteration)
				continue;
			Result& result = results[run.benchmark_name()];
			result.itemsPerSecond = run.counters.at("items_per_second");
			result.bytesPerSecond = run.counters.at("bytes_per_second");
		}
		ConsoleReporter::ReportRuns(runs);
	}
};

std::string transportName(int size, int batch)
{
	return "transport/" + std::to_string(size) + "B/" +
	       (batch > 1 ? "batch" + std::to_string(batch) : std::string("single"));
}

std::string plainName(int size)
{
	return "plain_socket/" + std::to_string(size) + "B";
}

void printTable()
{
	std::printf("\n%-28s %14s %10s %14s\n", "", "messages/s", "MB/s", "MB/s vs plain");
	for (int size : {16, 4096})
	{
		const Result plain = results[plainName(size) + "/real_time"];
		std::printf("%-28s %14.0f %10.1f %14s\n", plainName(size).c_str(), plain.itemsPerSecond,
		            plain.bytesPerSecond / 1e6, "1.00");
		for (int batch : {1, 64})
		{
			const Result ours = results[transportName(size, batch) + "/real_time"];
			if (plain.bytesPerSecond <= 0)
				continue;
			std::printf("%-28s %14.0f %10.1f %14.2f\n", transportName(size, batch).c_str(),
			            ours.itemsPerSecond, ours.bytesPerSecond / 1e6,
			            ours.bytesPerSecond / plain.bytesPerSecond);
		}
	}
}

} // namespace

int main(int argc, char** argv)
{
	for (int size : {16, 4096})
	{
		benchmark::RegisterBenchmark(plainName(size).c_str(), BM_PlainSocket, size)->UseRealTime();
		for (int batch : {1, 64})
			benchmark::RegisterBenchmark(transportName(size, batch).c_str(), BM_Transport, size,
			                             batch)
			    ->UseRealTime();
	}
	benchmark::Initialize(&argc, argv);
	RateReporter reporter;
	benchmark::RunSpecifiedBenchmarks(&reporter);
	printTable();
	benchmark::Shutdown();
	return 0;
}
