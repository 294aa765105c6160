#include "PrometheusReadme.h"

namespace ostrel {

QByteArray prometheusReadme()
{
    return R"(# What Ostrel watches, for Prometheus

`ostrel export --format prometheus` wrote this folder.

| File | Its reader |
|---|---|
| `blackbox.yml` | the blackbox exporter: a module for each way to check |
| `prometheus.yml` | Prometheus: a job for each pair of an interval and a time-out |
| `targets/*.json` | Prometheus: the addresses of a job, with their labels |
| `ostrel.rules.yml` | Prometheus: the alerts |

    prometheus-blackbox-exporter --config.file=blackbox.yml --web.listen-address=127.0.0.1:9115
    prometheus --config.file=prometheus.yml

If the exporter listens elsewhere, change `replacement` in `prometheus.yml`. If you have a Prometheus already, add the jobs and the rules file to its configuration. Alerts reach people only through an Alertmanager, which is yours to set up.

## Labels and alerts

- `MonitorDown`: two failures in a row, for targets with `ostrel_notify_down`.
- `MonitorSlow`: up, but slower than `ostrel_threshold_ms`, for targets that have it.
- `CertificateExpires`: `ostrel_certificate_days` whole days before the certificate expires, or fewer.
- `ostrel_interval` says how often a target is checked; the alerts look so far back.

To move a target to another interval, move it to that job's file and change the label. A new value of one of these labels also needs a rule of its own.

## Where the verdicts differ

- The exporter tries one address of a host, an IPv4 address if there is one. Ostrel tries all.
- The exporter follows 10 redirects, Ostrel 20. A redirect without an address is down for the exporter, up for Ostrel.
- Keywords are found in any case, but not however their letters are composed. A page that isn't valid UTF-8 is searched all the same.
- `CertificateExpires` counts from the certificate of the chain that expires first, and in days of 24 hours. Ostrel looks at the site's own certificate, and counts days of the calendar.
- Prometheus counts an interval from the beginning of a check, Ostrel from its end.
- Prometheus doesn't know that the computer was asleep or without a network, and alerts after it.
- No alert tells that the exporter itself is gone: watch `up` of these jobs.
- A proxy that Ostrel takes from its environment needs a `proxy_url` in `blackbox.yml`.
)";
}

} // namespace ostrel
