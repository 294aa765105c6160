// What a check costs and how accurate its time is, against a bare libcurl loop in the same run.

#include "BareLoop.h"
#include "BenchServer.h"
#include "CurlNetwork.h"
#include "TlsDelegate.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

namespace ostrel::bench {

namespace {

using namespace std::chrono;
using Times = std::vector<microseconds>;

constexpr int rounds = 7;
const int concurrency = IoThreadConfiguration().maxConcurrentTransfers;

class DateReader final : public TlsDelegate
{
public:
    void didReceiveLeafCertificate(sys_seconds) override {}
};

HttpRequest requestFor(const QByteArray &url, milliseconds timeout)
{
    return {.url = url,
            .method = "GET",
            .userAgent = "bench",
            .timeout = timeout,
            .bodyLimit = 0,
            .tlsDelegate = std::make_shared<DateReader>()};
}

/// Fetches all requests, submitted at once, and takes the results on this thread's event loop.
std::vector<HttpResult> fetchAll(CurlNetwork &network, const std::vector<HttpRequest> &requests)
{
    QObject context;
    QEventLoop loop;
    std::vector<HttpResult> results;
    for (const HttpRequest &request : requests) {
        (void)network.fetch(request).then(&context, [&](const HttpResult &result) {
            results.push_back(result);
            if (results.size() == requests.size())
                loop.quit();
        });
    }
    loop.exec();
    return results;
}

Times timesOf(const std::vector<HttpResult> &results)
{
    Times times;
    for (const HttpResult &result : results)
        times.push_back(result.elapsed);
    return times;
}

double cpuSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

double cpuSecondsOf(const std::function<void()> &work)
{
    const double before = cpuSeconds();
    work();
    return cpuSeconds() - before;
}

/// The best of several rounds of each, taken in turn so that both have the same conditions.
void compareCpu(const char *name, const QByteArray &url, int count, const TrustStore &trustStore)
{
    CurlNetwork network({.trustStore = trustStore});
    const std::vector<HttpRequest> requests(static_cast<std::size_t>(count),
                                            requestFor(url, seconds(10)));
    double ours = 1e9;
    double bare = 1e9;
    for (int i = 0; i < rounds; ++i) {
        bare = std::min(
            bare, cpuSecondsOf([&] { (void)fetchBare(url, count, concurrency, trustStore); }));
        ours = std::min(ours, cpuSecondsOf([&] {
                            for (const HttpResult &result : fetchAll(network, requests)) {
                                if (!result.hasResponse)
                                    std::printf("failed: %s\n", qPrintable(result.error));
                            }
                        }));
    }
    std::printf("%-28s %10.1f %10.1f %8.2f\n", name, bare / count * 1e6, ours / count * 1e6,
                ours / bare);
}

double quantile(Times &times, double share)
{
    std::sort(times.begin(), times.end());
    const auto index = static_cast<std::size_t>(share * static_cast<double>(times.size() - 1));
    return duration<double, std::milli>(times[index]).count();
}

void printDistribution(const char *name, Times times)
{
    std::printf("%-28s %8.2f %8.2f %8.2f %8.2f\n", name, quantile(times, 0), quantile(times, 0.5),
                quantile(times, 0.95), quantile(times, 1));
}

void compareTimes(const BenchServer &server, const TrustStore &trustStore)
{
    constexpr int count = 500;
    CurlNetwork network({.trustStore = trustStore});
    const std::vector<HttpRequest> requests(count, requestFor(server.delayedUrl(), seconds(10)));
    std::printf("\n%d checks due at once, answered after %d ms; times in ms\n", count,
                BenchServer::delayMilliseconds);
    std::printf("%-28s %8s %8s %8s %8s\n", "", "least", "median", "95 %", "most");
    for (int i = 0; i < 3; ++i) {
        printDistribution("bare, bounded",
                          fetchBare(server.delayedUrl(), count, concurrency, trustStore));
        printDistribution("bare, all at once",
                          fetchBare(server.delayedUrl(), count, count, trustStore));
        printDistribution("ours", timesOf(fetchAll(network, requests)));
    }
}

void measureLateness(const BenchServer &server, const TrustStore &trustStore)
{
    constexpr int count = 300;
    CurlNetwork network({.trustStore = trustStore});
    std::vector<HttpRequest> requests;
    for (int i = 0; i < count; ++i)
        requests.push_back(requestFor(server.silentUrl(), milliseconds(200)));
    Times late;
    for (const HttpResult &result : fetchAll(network, requests))
        late.push_back(result.elapsed - milliseconds(200));
    std::printf("\n%d time-outs of 200 ms; reported beyond it, in ms\n", count);
    std::printf("%-28s %8s %8s %8s %8s\n", "", "least", "median", "95 %", "most");
    printDistribution("ours", late);
}

void run()
{
    test::TestCertificates certificates;
    const BenchServer server(certificates.valid());
    const TrustStore trustStore{.directory = certificates.authorityDirectory(), .file = {}};

    std::printf("CPU for each check in µs, best of %d rounds, %d at once\n", rounds, concurrency);
    std::printf("%-28s %10s %10s %8s\n", "", "bare", "ours", "ratio");
    compareCpu("HTTP", server.promptUrl(), 2000, trustStore);
    compareCpu("HTTPS, full handshake", server.tlsUrl(), 500, trustStore);
    compareTimes(server, trustStore);
    measureLateness(server, trustStore);
}

} // namespace

} // namespace ostrel::bench

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    ostrel::bench::run();
    return 0;
}
