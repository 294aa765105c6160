#pragma once

#include "MonitorDraft.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QUuid>

#include <optional>

namespace ostrel {

class MonitorStore;

/// The form that makes a new monitor or changes one. Lives on the main thread; begin it anew each
/// time that it is shown. Until save() nothing outside changes; that hands the monitor over.
class MonitorForm : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString url READ url WRITE setUrl NOTIFY changed)
    Q_PROPERTY(QString portText READ portText WRITE setPortText NOTIFY changed)
    /// Seconds.
    Q_PROPERTY(double interval READ interval WRITE setInterval NOTIFY changed)
    /// A raw value of HTTPMethod's: one of `methods`.
    Q_PROPERTY(QString method READ method WRITE setMethod NOTIFY changed)
    /// Seconds, above 0.
    Q_PROPERTY(double timeout READ timeout WRITE setTimeout NOTIFY changed)
    /// A raw value of MonitorType's: "http" or "port".
    Q_PROPERTY(QString monitorType READ monitorType WRITE setMonitorType NOTIFY changed)
    Q_PROPERTY(QString keyword READ keyword WRITE setKeyword NOTIFY changed)
    Q_PROPERTY(
        bool keywordShouldExist READ keywordShouldExist WRITE setKeywordShouldExist NOTIFY changed)
    Q_PROPERTY(QString thresholdText READ thresholdText WRITE setThresholdText NOTIFY changed)
    Q_PROPERTY(bool showAdvanced READ showAdvanced WRITE setShowAdvanced NOTIFY changed)
    /// The web address that was on the clipboard when the form was shown; empty for none.
    Q_PROPERTY(QString clipboardURL READ clipboardURL NOTIFY changed)

    /// `timeout` in the user's locale.
    Q_PROPERTY(QString timeoutText READ timeoutText NOTIFY changed)
    Q_PROPERTY(bool isWebsite READ isWebsite NOTIFY changed)
    Q_PROPERTY(bool isValid READ isValid NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString confirmText READ confirmText NOTIFY changed)
    Q_PROPERTY(bool showsClipboardSuggestion READ showsClipboardSuggestion NOTIFY changed)
    Q_PROPERTY(QString suggestionText READ suggestionText NOTIFY changed)

    /// What the form offers, in the order of the enumerations. Intervals are in seconds.
    Q_PROPERTY(QList<double> intervals READ intervals CONSTANT)
    Q_PROPERTY(QStringList methods READ methods CONSTANT)
    Q_PROPERTY(QString urlPlaceholder READ urlPlaceholder CONSTANT)
    Q_PROPERTY(QString hostPlaceholder READ hostPlaceholder CONSTANT)

public:
    /// @p store outlives the form.
    explicit MonitorForm(MonitorStore &store, WallClock now = systemNow, QObject *parent = nullptr);

    [[nodiscard]] QString url() const { return m_draft.url; }
    /// A website's address that names a host and a port instead turns the form to port monitors,
    /// and leaves the host here and the port in `portText`.
    void setUrl(const QString &url);
    [[nodiscard]] QString portText() const { return m_draft.portText; }
    void setPortText(const QString &portText);
    [[nodiscard]] double interval() const { return m_draft.interval.count(); }
    void setInterval(double seconds);
    [[nodiscard]] QString method() const { return rawValue(m_draft.method); }
    /// Does nothing where @p method is none.
    void setMethod(const QString &method);
    [[nodiscard]] double timeout() const { return m_draft.timeout.count(); }
    /// Does nothing unless @p seconds is finite and above 0.
    void setTimeout(double seconds);
    [[nodiscard]] QString monitorType() const { return rawValue(m_draft.monitorType); }
    /// Does nothing where @p type is none.
    void setMonitorType(const QString &type);
    [[nodiscard]] QString keyword() const { return m_draft.keyword; }
    void setKeyword(const QString &keyword);
    [[nodiscard]] bool keywordShouldExist() const { return m_draft.keywordShouldExist; }
    void setKeywordShouldExist(bool shouldExist);
    [[nodiscard]] QString thresholdText() const { return m_draft.thresholdText; }
    void setThresholdText(const QString &thresholdText);
    [[nodiscard]] bool showAdvanced() const { return m_showAdvanced; }
    void setShowAdvanced(bool showAdvanced);
    [[nodiscard]] QString clipboardURL() const { return m_clipboardURL.value_or(QString()); }

    [[nodiscard]] QString timeoutText() const;
    /// Keeps what stands in the time-out's field in the user's locale: it may be half typed.
    Q_INVOKABLE void typeTimeout(const QString &text);
    /// Takes over what was typed last, which changes nothing if it is no time-out. save() does so
    /// as well.
    Q_INVOKABLE void commitTimeout();
    [[nodiscard]] bool isWebsite() const { return m_draft.monitorType == MonitorType::http; }
    [[nodiscard]] bool isValid() const { return ostrel::isValid(m_draft); }
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString confirmText() const;
    [[nodiscard]] bool showsClipboardSuggestion() const;
    [[nodiscard]] QString suggestionText() const;

    [[nodiscard]] QList<double> intervals() const;
    [[nodiscard]] QStringList methods() const;
    [[nodiscard]] QString urlPlaceholder() const;
    [[nodiscard]] QString hostPlaceholder() const;
    /// "5m" for 300: what the form calls one of `intervals`; empty for any other.
    Q_INVOKABLE [[nodiscard]] QString intervalText(double seconds) const;

    /// Shows an empty form for a new monitor. @p clipboardText is what the clipboard holds as
    /// plain text; empty where it holds none.
    Q_INVOKABLE void beginCreate(const QString &clipboardText);
    /// Shows @p monitor. @p clipboardText is as for beginCreate.
    void beginEdit(const Monitor &monitor, const QString &clipboardText);

    /// Fills in the clipboard's address, where it is suggested.
    Q_INVOKABLE void pasteSuggestion();

    /// Hands over what was typed, by created() or edited(). False, and without any effect, while
    /// the form isn't valid.
    Q_INVOKABLE bool save();

    /// Names the monitor with this id after its page, unless it was deleted meanwhile.
    void applyTitle(const QUuid &monitorId, const QString &title);

Q_SIGNALS:
    /// Any of the properties has changed.
    void changed();
    /// @p monitor is to be stored and watched from now on.
    void created(const Monitor &monitor);
    /// @p monitor is to be stored in place of the one of its id, and to be watched anew.
    void edited(const Monitor &monitor);
    /// A website has been handed over by created(): its title, for applyTitle, and its icon can be
    /// looked up.
    void websiteCreated(const QUuid &monitorId, const QString &address);

private:
    [[nodiscard]] bool isEditing() const { return m_editingMonitor.has_value(); }
    void begin(const std::optional<Monitor> &monitor, const QString &clipboardText);
    [[nodiscard]] Monitor editedMonitor() const;
    void create();

    /// Gives @p field its new value, and tells.
    template<typename T>
    void set(T &field, const T &value);

    MonitorStore &m_store;
    WallClock m_now;
    std::optional<Monitor> m_editingMonitor; ///< Absent for a new one.
    std::optional<QString> m_clipboardURL;
    MonitorDraft m_draft;
    std::optional<QString> m_typedTimeout; ///< Absent if nothing was typed since the last commit.
    bool m_showAdvanced = false;
};

} // namespace ostrel
