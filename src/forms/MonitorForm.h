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

/// The form for a new monitor or for editing one. Lives on the main thread; call beginCreate() or
/// beginEdit() each time it is shown. Nothing outside changes until save(), which hands the monitor
/// over.
class MonitorForm : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString url READ url WRITE setUrl NOTIFY changed)
    Q_PROPERTY(QString portText READ portText WRITE setPortText NOTIFY changed)
    /// Seconds.
    Q_PROPERTY(double interval READ interval WRITE setInterval NOTIFY changed)
    /// A raw value of HTTPMethod: one of `methods`.
    Q_PROPERTY(QString method READ method WRITE setMethod NOTIFY changed)
    /// Seconds, above 0.
    Q_PROPERTY(double timeout READ timeout WRITE setTimeout NOTIFY changed)
    /// A raw value of MonitorType: "http" or "port".
    Q_PROPERTY(QString monitorType READ monitorType WRITE setMonitorType NOTIFY changed)
    Q_PROPERTY(QString keyword READ keyword WRITE setKeyword NOTIFY changed)
    Q_PROPERTY(
        bool keywordShouldExist READ keywordShouldExist WRITE setKeywordShouldExist NOTIFY changed)
    Q_PROPERTY(QString thresholdText READ thresholdText WRITE setThresholdText NOTIFY changed)
    Q_PROPERTY(bool showAdvanced READ showAdvanced WRITE setShowAdvanced NOTIFY changed)
    /// The web address that was on the clipboard when the form was shown; empty if there was none.
    Q_PROPERTY(QString clipboardURL READ clipboardURL NOTIFY changed)

    /// `timeout` in the user's locale.
    Q_PROPERTY(QString timeoutText READ timeoutText NOTIFY changed)
    Q_PROPERTY(bool isWebsite READ isWebsite NOTIFY changed)
    Q_PROPERTY(bool isValid READ isValid NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString confirmText READ confirmText NOTIFY changed)
    Q_PROPERTY(bool showsClipboardSuggestion READ showsClipboardSuggestion NOTIFY changed)
    Q_PROPERTY(QString suggestionText READ suggestionText NOTIFY changed)

    /// The form's choices, in the order of the enumerations. Intervals are in seconds.
    Q_PROPERTY(QList<double> intervals READ intervals CONSTANT)
    Q_PROPERTY(QStringList methods READ methods CONSTANT)
    Q_PROPERTY(QString urlPlaceholder READ urlPlaceholder CONSTANT)
    Q_PROPERTY(QString hostPlaceholder READ hostPlaceholder CONSTANT)

public:
    /// @p store must outlive the form.
    explicit MonitorForm(MonitorStore &store, WallClock now = systemNow, QObject *parent = nullptr);

    [[nodiscard]] QString url() const { return m_draft.url; }
    /// If a website's address is a host and a port instead, switches the form to port monitors,
    /// with the host here and the port in `portText`.
    void setUrl(const QString &url);
    [[nodiscard]] QString portText() const { return m_draft.portText; }
    /// If the port was detected in a typed address, and more than a port follows ("8080/status"),
    /// it was the beginning of a web address: that becomes `url` again.
    void setPortText(const QString &portText);
    [[nodiscard]] double interval() const { return m_draft.interval.count(); }
    void setInterval(double seconds);
    [[nodiscard]] QString method() const { return rawValue(m_draft.method); }
    /// Does nothing if @p method isn't a valid method.
    void setMethod(const QString &method);
    [[nodiscard]] double timeout() const { return m_draft.timeout.count(); }
    /// Does nothing unless @p seconds is finite and above 0.
    void setTimeout(double seconds);
    [[nodiscard]] QString monitorType() const { return rawValue(m_draft.monitorType); }
    /// Does nothing if @p type isn't a valid type.
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
    /// For example "5m" for 300: the form's name for one of `intervals`; empty for any other.
    Q_INVOKABLE [[nodiscard]] QString intervalText(double seconds) const;

    /// Shows an empty form for a new monitor. @p clipboardText is the clipboard's plain text; empty
    /// if there is none.
    Q_INVOKABLE void beginCreate(const QString &clipboardText);
    /// Shows @p monitor. @p clipboardText is as in beginCreate().
    void beginEdit(const Monitor &monitor, const QString &clipboardText);

    /// Fills in the clipboard's address, if it is suggested.
    Q_INVOKABLE void pasteSuggestion();

    /// Emits created() or edited() with what was typed. Returns false, without any effect, if the
    /// form isn't valid.
    Q_INVOKABLE bool save();

    /// Names the monitor with this id after its page's title, unless it was deleted meanwhile.
    void applyTitle(const QUuid &monitorId, const QString &title);

Q_SIGNALS:
    /// Any of the properties has changed.
    void changed();
    /// @p monitor must be stored and watched from now on.
    void created(const Monitor &monitor);
    /// @p monitor must replace the stored one with the same id, and watching it must restart.
    void edited(const Monitor &monitor);
    /// Emitted after created() for a website: its title, for applyTitle(), and its icon can be
    /// fetched.
    void websiteCreated(const QUuid &monitorId, const QString &address);

private:
    [[nodiscard]] bool isEditing() const { return m_editingMonitor.has_value(); }
    void begin(const std::optional<Monitor> &monitor, const QString &clipboardText);
    [[nodiscard]] Monitor editedMonitor() const;
    void create();

    /// Sets @p field to its new value, and emits changed() if it differs.
    template<typename T>
    void set(T &field, const T &value);

    MonitorStore &m_store;
    WallClock m_now;
    std::optional<Monitor> m_editingMonitor; ///< Absent for a new monitor.
    std::optional<QString> m_clipboardURL;
    MonitorDraft m_draft;
    bool m_isPortDetected =
        false; ///< Whether the draft is one of a port because of a typed address.
    std::optional<QString> m_typedTimeout; ///< Absent if nothing was typed since the last commit.
    bool m_showAdvanced = false;
};

} // namespace ostrel
