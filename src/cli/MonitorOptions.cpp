#include "MonitorOptions.h"

#include "CommandArguments.h"
#include "HostAndPort.h"
#include "MonitorDraft.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

// Reading

/// Reads the values of a parser, and remembers the first that is unusable.
class ValueReader
{
public:
    explicit ValueReader(const QCommandLineParser &parser)
        : m_parser(parser)
    {
    }

    template<typename Value, typename Convert>
    [[nodiscard]] std::optional<Value> value(const QString &name, Convert convert)
    {
        const auto read = optionValue<Value>(m_parser, name, convert);
        if (!read.isUsable && !m_problem)
            m_problem = unusableOption(m_parser, name);
        return read.value;
    }
    [[nodiscard]] std::optional<QString> text(const QString &name) const
    {
        return m_parser.isSet(name) ? std::optional(m_parser.value(name)) : std::nullopt;
    }
    /// Complains if both options are given.
    void exclude(const QString &one, const QString &other)
    {
        if (isSet(one) && isSet(other) && !m_problem)
            m_problem = unusable(u"--"_s + one + u" doesn't go with --"_s + other + u'.');
    }
    [[nodiscard]] bool isSet(const QString &name) const
    {
        return m_parser.optionNames().contains(name);
    }
    [[nodiscard]] const std::optional<UnusableInvocation> &problem() const { return m_problem; }

private:
    const QCommandLineParser &m_parser;
    std::optional<UnusableInvocation> m_problem;
};

template<typename Quantity>
std::optional<Quantity> positiveFrom(const QString &value)
{
    const auto number = positiveNumberFrom(value);
    return number ? std::optional(Quantity(*number)) : std::nullopt;
}

std::optional<HTTPMethod> methodFrom(const QString &value)
{
    return httpMethodFrom(value.toUpper());
}

std::optional<QString> keywordFrom(const QString &value)
{
    return value.isEmpty() ? std::nullopt : std::optional(value);
}

std::optional<bool> keywordPresence(const ValueReader &reader)
{
    if (reader.isSet(u"keyword-absent"_s))
        return false;
    return reader.isSet(u"keyword-present"_s) ? std::optional(true) : std::nullopt;
}

// Applying

bool isOfAPort(const MonitorDraft &draft)
{
    return draft.monitorType == MonitorType::port;
}

void becomePort(MonitorDraft &draft, const QString &host, const QString &portText)
{
    draft.monitorType = MonitorType::port;
    draft.url = host;
    draft.portText = portText;
}

/// As the form's field takes an address.
void setAddress(MonitorDraft &draft, const QString &typed)
{
    if (const auto detected = detectHostAndPort(typed))
        return becomePort(draft, detected->host, detected->portText);
    draft.monitorType = MonitorType::http;
    draft.url = typed;
    draft.portText.clear();
}

void setTarget(MonitorDraft &draft, const MonitorOptions &options)
{
    if (options.address && options.port)
        becomePort(draft, *options.address, QString::number(*options.port));
    else if (options.address)
        setAddress(draft, *options.address);
    else if (options.port)
        draft.portText = QString::number(*options.port);
}

/// The draft of a monitor with all @p options but the threshold, whose field shows whole
/// milliseconds, and the name, which has no field.
MonitorDraft draftWith(MonitorDraft draft, const MonitorOptions &options)
{
    setTarget(draft, options);
    draft.interval = options.interval.value_or(draft.interval);
    draft.method = options.method.value_or(draft.method);
    draft.timeout = options.timeout.value_or(draft.timeout);
    draft.keyword = options.keyword.value_or(draft.keyword);
    draft.keywordShouldExist = options.keywordShouldExist.value_or(draft.keywordShouldExist);
    return draft;
}

/// The name of the first option of @p options that is only for websites; empty if none is.
QString webOption(const MonitorOptions &options)
{
    if (options.method)
        return u"--method"_s;
    if (options.keyword && !options.keyword->isEmpty())
        return u"--keyword"_s;
    return options.threshold && options.threshold->count() > 0 ? u"--threshold"_s : QString();
}

/// What is wrong with @p draft, which has @p options; empty if nothing is.
QString complaintAbout(const MonitorDraft &draft, const MonitorOptions &options)
{
    if (options.port && !isOfAPort(draft))
        return u"--port needs the address of a host."_s;
    if (!isValid(draft))
        return noTarget(draft.url);
    if (isOfAPort(draft) && !webOption(options).isEmpty())
        return webOption(options) + u" doesn't go with a port."_s;
    if (options.keywordShouldExist && draft.keyword.isEmpty())
        return u"--keyword-absent and --keyword-present need a keyword."_s;
    return {};
}

Monitor withNameAndThreshold(Monitor monitor, const MonitorOptions &options)
{
    monitor.name = options.name.value_or(monitor.name);
    if (options.threshold)
        monitor.responseTimeThreshold =
            options.threshold->count() > 0 ? options.threshold : std::nullopt;
    return monitor;
}

} // namespace

void addMonitorOptions(QCommandLineParser &parser)
{
    parser.addOptions({
        {u"name"_s, {}, u"N"_s},
        {u"port"_s, {}, u"N"_s},
        {u"interval"_s, {}, u"S"_s},
        {u"method"_s, {}, u"M"_s},
        {u"timeout"_s, {}, u"S"_s},
        {u"keyword"_s, {}, u"TEXT"_s},
        {u"keyword-absent"_s, {}},
        {u"threshold"_s, {}, u"MS"_s},
    });
}

void addEditOptions(QCommandLineParser &parser)
{
    parser.addOptions({
        {u"address"_s, {}, u"ADDRESS"_s},
        {u"keyword-present"_s, {}},
        {u"no-keyword"_s, {}},
        {u"no-threshold"_s, {}},
    });
}

std::variant<MonitorOptions, UnusableInvocation>
monitorOptionsFrom(const QCommandLineParser &parser)
{
    ValueReader reader(parser);
    reader.exclude(u"keyword"_s, u"no-keyword"_s);
    reader.exclude(u"keyword-absent"_s, u"no-keyword"_s);
    reader.exclude(u"keyword-absent"_s, u"keyword-present"_s);
    reader.exclude(u"threshold"_s, u"no-threshold"_s);
    MonitorOptions options{
        .name = reader.text(u"name"_s),
        .address = reader.isSet(u"address"_s) ? reader.text(u"address"_s) : std::nullopt,
        .port = reader.value<qint64>(u"port"_s, portFrom),
        .interval = reader.value<Seconds>(u"interval"_s, positiveFrom<Seconds>),
        .method = reader.value<HTTPMethod>(u"method"_s, methodFrom),
        .timeout = reader.value<Seconds>(u"timeout"_s, positiveFrom<Seconds>),
        .keyword = reader.value<QString>(u"keyword"_s, keywordFrom),
        .keywordShouldExist = keywordPresence(reader),
        .threshold = reader.value<Milliseconds>(u"threshold"_s, positiveFrom<Milliseconds>),
    };
    if (reader.isSet(u"no-keyword"_s))
        options.keyword = QString();
    if (reader.isSet(u"no-threshold"_s))
        options.threshold = Milliseconds(0);
    if (reader.problem())
        return *reader.problem();
    return options;
}

std::variant<Monitor, QString> newMonitorFrom(const MonitorOptions &options, Timestamp createdAt)
{
    const MonitorDraft empty;
    const MonitorDraft draft = draftWith(empty, options);
    const QString complaint = complaintAbout(draft, options);
    if (!complaint.isEmpty())
        return complaint;
    return withNameAndThreshold(newMonitor(draft, createdAt), options);
}

std::variant<Monitor, QString> withOptions(const Monitor &monitor, const MonitorOptions &options)
{
    const MonitorDraft draft = draftWith(draftOf(monitor), options);
    const QString complaint = complaintAbout(draft, options);
    if (!complaint.isEmpty())
        return complaint;
    Monitor changed = withDraft(monitor, draft);
    changed.responseTimeThreshold = monitor.responseTimeThreshold;
    return withNameAndThreshold(changed, options);
}

} // namespace ostrel
