#include "MonitorForm.h"

#include "ForeignTexts.h"
#include "MonitorStore.h"
#include "Printers.h"
#include "ProductConstants.h"

#include <QLocale>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace ostrel::test {

namespace {

const QString clipboardAddress = QStringLiteral("https://a.example/path");

/// A monitor with an id of its own.
Monitor makeMonitor()
{
    return {.id = QUuid::createUuid(),
            .name = QStringLiteral("Shop"),
            .url = QStringLiteral("https://shop.example/"),
            .createdAt = systemNow()};
}

/// A form whose monitors are stored, and watched by nobody.
class MonitorFormTest : public testing::Test
{
protected:
    MonitorFormTest()
    {
        QObject::connect(&form, &MonitorForm::created, &form, [this](const Monitor &monitor) {
            steps += QStringLiteral("created");
            created.push_back(monitor);
            store.addMonitor(monitor);
        });
        QObject::connect(&form, &MonitorForm::edited, &form, [this](const Monitor &monitor) {
            steps += QStringLiteral("edited");
            edited.push_back(monitor);
            store.updateMonitor(monitor);
        });
        QObject::connect(&form, &MonitorForm::websiteCreated, &form,
                         [this](const QUuid &id, const QString &address) {
                             steps += QStringLiteral("told");
                             websites.emplace_back(id, address);
                         });
        QObject::connect(&form, &MonitorForm::changed, &form, [this] { ++changes; });
    }

    /// Saves a new monitor of the website @p url.
    Monitor saveWebsite(const QString &url)
    {
        form.beginCreate(QString());
        form.setUrl(url);
        EXPECT_TRUE(form.save());
        return store.monitors().last();
    }

    /// A stored monitor, shown in the form.
    Monitor edit(Monitor monitor)
    {
        store.addMonitor(monitor);
        form.beginEdit(monitor, QString());
        return monitor;
    }

    const Timestamp now{std::chrono::seconds(1'700'000'000)};
    QTemporaryDir folder;
    MonitorStore store{folder.filePath(QStringLiteral("data"))};
    MonitorForm form{store, [this] { return now; }};
    QStringList steps; ///< What the form has done, in order.
    std::vector<Monitor> created;
    std::vector<Monitor> edited;
    std::vector<std::pair<QUuid, QString>> websites;
    int changes = 0;
};

} // namespace

TEST_F(MonitorFormTest, CreateModeBeginsEmpty)
{
    form.beginCreate(QString());

    EXPECT_EQ(form.title(), QStringLiteral("New Monitor"));
    EXPECT_EQ(form.confirmText(), QStringLiteral("Start Monitoring"));
    EXPECT_TRUE(form.isWebsite());
    EXPECT_FALSE(form.isValid());
    EXPECT_EQ(form.url(), QString());
    EXPECT_EQ(form.portText(), QString());
    EXPECT_EQ(form.interval(), 300);
    EXPECT_EQ(form.method(), QStringLiteral("GET"));
    EXPECT_EQ(form.timeout(), 30);
    EXPECT_EQ(form.monitorType(), QStringLiteral("http"));
    EXPECT_EQ(form.keyword(), QString());
    EXPECT_TRUE(form.keywordShouldExist());
    EXPECT_EQ(form.thresholdText(), QString());
    EXPECT_FALSE(form.showAdvanced());
    EXPECT_EQ(form.clipboardURL(), QString());
}

TEST_F(MonitorFormTest, EditModeBeginsWithTheMonitor)
{
    Monitor monitor = makeMonitor();
    monitor.type = MonitorType::port;
    monitor.port = 5432;
    monitor.method = HTTPMethod::POST;
    monitor.keyword = QStringLiteral("Welcome");
    form.beginEdit(monitor, QString());

    EXPECT_EQ(form.title(), QStringLiteral("Edit Monitor"));
    EXPECT_EQ(form.confirmText(), QStringLiteral("Save"));
    EXPECT_TRUE(form.isValid());
    EXPECT_EQ(form.url(), monitor.url);
    EXPECT_EQ(form.portText(), QStringLiteral("5432"));
    EXPECT_EQ(form.interval(), 60);
    EXPECT_EQ(form.method(), QStringLiteral("POST"));
    EXPECT_EQ(form.monitorType(), QStringLiteral("port"));
    EXPECT_EQ(form.keyword(), QStringLiteral("Welcome"));
}

TEST_F(MonitorFormTest, BeginningAnewForgetsWhatWasTyped)
{
    form.beginEdit(makeMonitor(), clipboardAddress);
    form.setShowAdvanced(true);
    form.setThresholdText(QStringLiteral("500"));
    form.setMonitorType(QStringLiteral("port"));

    form.beginCreate(QString());
    EXPECT_EQ(form.title(), QStringLiteral("New Monitor"));
    EXPECT_FALSE(form.showAdvanced());
    EXPECT_EQ(form.thresholdText(), QString());
    EXPECT_EQ(form.monitorType(), QStringLiteral("http"));
    EXPECT_EQ(form.clipboardURL(), QString());
}

TEST_F(MonitorFormTest, EveryFieldTellsOfItsChangesAndOfNothingElse)
{
    const std::vector<std::pair<const char *, QVariant>> values = {
        {"url", QStringLiteral("a.b")},
        {"portText", QStringLiteral("80")},
        {"interval", 60.0},
        {"method", QStringLiteral("HEAD")},
        {"timeout", 5.0},
        {"monitorType", QStringLiteral("port")},
        {"keyword", QStringLiteral("Welcome")},
        {"keywordShouldExist", false},
        {"thresholdText", QStringLiteral("500")},
        {"showAdvanced", true},
        {"timeoutText", QStringLiteral("7")},
    };
    form.beginCreate(QString());
    for (const auto &[name, value] : values) {
        changes = 0;
        EXPECT_TRUE(form.setProperty(name, value)) << name;
        EXPECT_EQ(form.property(name), value) << name;
        EXPECT_EQ(changes, 1) << name;
        form.setProperty(name, value);
        EXPECT_EQ(changes, 1) << name;
    }
}

TEST_F(MonitorFormTest, WhatIsNoMethodTypeOrTimeoutChangesNothing)
{
    form.beginCreate(QString());
    changes = 0;
    form.setMethod(QStringLiteral("PATCH"));
    form.setMonitorType(QStringLiteral("ftp"));
    for (const double seconds : {0.0, -1.0, qInf(), qQNaN()})
        form.setTimeout(seconds);
    form.setTimeoutText(QStringLiteral("soon"));

    EXPECT_EQ(changes, 0);
    EXPECT_EQ(form.method(), QStringLiteral("GET"));
    EXPECT_EQ(form.monitorType(), QStringLiteral("http"));
    EXPECT_EQ(form.timeout(), 30);
}

TEST_F(MonitorFormTest, TheTimeoutIsShownAndTypedInTheUsersLocale)
{
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    form.beginCreate(QString());
    form.setTimeoutText(QStringLiteral("2,5"));
    EXPECT_EQ(form.timeout(), 2.5);
    EXPECT_EQ(form.timeoutText(), QStringLiteral("2,5"));
}

TEST_F(MonitorFormTest, TheThresholdIsTypedWithAPointInEveryLocale)
{
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    form.beginCreate(QString());
    form.setUrl(QStringLiteral("shop.example"));
    form.setThresholdText(QStringLiteral("450.5"));
    ASSERT_TRUE(form.save());
    EXPECT_EQ(store.monitors().last().responseTimeThreshold, Milliseconds(450.5));
}

TEST_F(MonitorFormTest, OffersIntervalsAndMethodsInTheirOrder)
{
    EXPECT_THAT(form.intervals(), testing::ElementsAre(30, 60, 300, 900, 1800, 3600));
    EXPECT_EQ(form.methods(),
              QStringList({QStringLiteral("GET"), QStringLiteral("HEAD"), QStringLiteral("POST")}));
    QStringList texts;
    for (const double interval : form.intervals())
        texts += form.intervalText(interval);
    EXPECT_EQ(texts.join(u' '), QStringLiteral("30s 1m 5m 15m 30m 1h"));
    EXPECT_EQ(form.intervalText(77), QString());
}

TEST_F(MonitorFormTest, ShowsTheExamplesAsPlaceholders)
{
    EXPECT_EQ(form.urlPlaceholder(), exampleWebsite());
    EXPECT_EQ(form.hostPlaceholder(), exampleDatabaseHost());
}

TEST_F(MonitorFormTest, TypingHostAndPortSwitchesToPortMode)
{
    form.beginCreate(QString());
    changes = 0;
    form.setUrl(QStringLiteral("myhost:8080"));

    EXPECT_EQ(form.monitorType(), QStringLiteral("port"));
    EXPECT_EQ(form.url(), QStringLiteral("myhost"));
    EXPECT_EQ(form.portText(), QStringLiteral("8080"));
    EXPECT_TRUE(form.isValid());
    EXPECT_EQ(changes, 1);
}

TEST_F(MonitorFormTest, PortsOutOfRangeDoNotSwitchToPortMode)
{
    for (const QString &text : {QStringLiteral("myhost:0"), QStringLiteral("myhost:70000")}) {
        form.beginCreate(QString());
        form.setUrl(text);
        EXPECT_EQ(form.monitorType(), QStringLiteral("http"));
        EXPECT_EQ(form.url(), text);
        EXPECT_EQ(form.portText(), QString());
    }
}

TEST_F(MonitorFormTest, TheHostFieldIsNotSplit)
{
    form.beginCreate(QString());
    form.setMonitorType(QStringLiteral("port"));
    form.setUrl(QStringLiteral("myhost:8080"));
    EXPECT_EQ(form.url(), QStringLiteral("myhost:8080"));
    EXPECT_EQ(form.portText(), QString());
}

TEST_F(MonitorFormTest, AMonitorThatIsShownKeepsItsType)
{
    Monitor monitor = makeMonitor();
    monitor.url = QStringLiteral("myhost:8080");
    form.beginEdit(monitor, QString());
    form.setUrl(monitor.url);
    EXPECT_EQ(form.monitorType(), QStringLiteral("http"));
    EXPECT_EQ(form.url(), monitor.url);
}

TEST_F(MonitorFormTest, TheClipboardsAddressIsOfferedOnOneLineAndPastedAsItIs)
{
    for (const ForeignText &foreign : foreignTexts()) {
        const QString address = clipboardAddress + foreign.text + u'.';
        form.beginCreate(address);
        ASSERT_TRUE(form.showsClipboardSuggestion()) << foreign.name;
        EXPECT_TRUE(isFitForPeople(form.suggestionText())) << foreign.name;
        form.pasteSuggestion();
        EXPECT_EQ(form.url(), address) << foreign.name;
    }
}

TEST_F(MonitorFormTest, TheClipboardsAddressIsOfferedTrimmed)
{
    form.beginCreate(QStringLiteral("  https://a.example/path \n"));
    EXPECT_EQ(form.clipboardURL(), clipboardAddress);
    EXPECT_TRUE(form.showsClipboardSuggestion());
    EXPECT_EQ(form.suggestionText(), QStringLiteral("Paste: https://a.example/path"));
}

TEST_F(MonitorFormTest, OtherTextsOnTheClipboardOfferNothing)
{
    for (const QString &text : {QStringLiteral("ftp://x"), QStringLiteral("example.org")}) {
        form.beginCreate(text);
        EXPECT_EQ(form.clipboardURL(), QString());
        EXPECT_FALSE(form.showsClipboardSuggestion());
        form.pasteSuggestion();
        EXPECT_EQ(form.url(), QString());
    }
}

TEST_F(MonitorFormTest, TheSuggestionShowsOnlyAboveAnEmptyWebsiteField)
{
    form.beginCreate(clipboardAddress);
    form.setUrl(QStringLiteral("a"));
    EXPECT_FALSE(form.showsClipboardSuggestion());
    form.setUrl(QString());
    EXPECT_TRUE(form.showsClipboardSuggestion());
    form.setMonitorType(QStringLiteral("port"));
    EXPECT_FALSE(form.showsClipboardSuggestion());
}

TEST_F(MonitorFormTest, EditModeLooksAtTheClipboardButSuggestsNothing)
{
    form.beginEdit(makeMonitor(), clipboardAddress);
    form.setUrl(QString());
    EXPECT_EQ(form.clipboardURL(), clipboardAddress);
    EXPECT_FALSE(form.showsClipboardSuggestion());
    form.pasteSuggestion();
    EXPECT_EQ(form.url(), QString());
}

TEST_F(MonitorFormTest, PastingTheSuggestionFillsTheFieldAndHidesTheRow)
{
    form.beginCreate(clipboardAddress);
    form.pasteSuggestion();
    EXPECT_EQ(form.url(), clipboardAddress);
    EXPECT_TRUE(form.isValid());
    EXPECT_FALSE(form.showsClipboardSuggestion());
}

TEST_F(MonitorFormTest, AnInvalidFormIsNotSaved)
{
    form.beginCreate(QString());
    form.setUrl(QStringLiteral("localhost"));
    EXPECT_FALSE(form.save());
    EXPECT_TRUE(store.monitors().isEmpty());
    EXPECT_TRUE(steps.isEmpty());
}

TEST_F(MonitorFormTest, LocalhostIsAcceptedWithItsScheme)
{
    EXPECT_EQ(saveWebsite(QStringLiteral("http://localhost:3000")).url,
              QStringLiteral("http://localhost:3000"));
}

TEST_F(MonitorFormTest, AWebsiteIsSavedWithASchemeAndNamedAfterItsHost)
{
    const Monitor plain = saveWebsite(QStringLiteral("example.org"));
    EXPECT_EQ(plain.url, QStringLiteral("https://example.org"));
    EXPECT_EQ(plain.name, QStringLiteral("example.org"));
    EXPECT_EQ(plain.createdAt, now);
    EXPECT_EQ(saveWebsite(QStringLiteral("www.example.org")).name, QStringLiteral("example.org"));
}

TEST_F(MonitorFormTest, AHostThatBeginsWithHttpIsSavedAsWritten)
{
    const Monitor monitor = saveWebsite(QStringLiteral("httpbin.local"));
    EXPECT_EQ(monitor.url, QStringLiteral("httpbin.local"));
    EXPECT_EQ(monitor.name, QStringLiteral("httpbin.local"));
}

TEST_F(MonitorFormTest, ANewWebsiteIsHandedOverThenLookedUp)
{
    form.beginCreate(QString());
    form.setUrl(QStringLiteral("shop.example"));
    ASSERT_TRUE(form.save());

    EXPECT_EQ(steps.join(u' '), QStringLiteral("created told"));
    const Monitor &monitor = created.front();
    EXPECT_EQ(monitor.url, QStringLiteral("https://shop.example"));
    EXPECT_THAT(websites, testing::ElementsAre(std::pair(monitor.id, monitor.url)));
}

TEST_F(MonitorFormTest, ANewPortMonitorIsNamedAfterHostAndPort)
{
    form.beginCreate(QString());
    form.setMonitorType(QStringLiteral("port"));
    form.setUrl(QStringLiteral(" db "));
    form.setPortText(QStringLiteral("5432"));
    ASSERT_TRUE(form.save());

    const Monitor monitor = store.monitors().last();
    EXPECT_EQ(monitor.name, QStringLiteral("db:5432"));
    EXPECT_EQ(monitor.url, QStringLiteral("db"));
    EXPECT_EQ(monitor.port, 5432);
    EXPECT_EQ(steps.join(u' '), QStringLiteral("created"));
}

TEST_F(MonitorFormTest, EditingNeverRenames)
{
    const Monitor before = edit(makeMonitor());
    form.setUrl(QStringLiteral("other.example"));
    ASSERT_TRUE(form.save());

    Monitor expected = before;
    expected.url = QStringLiteral("https://other.example");
    EXPECT_THAT(store.monitors(), testing::ElementsAre(expected));
    EXPECT_EQ(steps.join(u' '), QStringLiteral("edited"));
}

TEST_F(MonitorFormTest, AnEditedMonitorIsHandedOver)
{
    const Monitor monitor = edit(makeMonitor());
    form.setInterval(3600);
    ASSERT_TRUE(form.save());

    Monitor expected = monitor;
    expected.interval = Seconds(3600);
    EXPECT_THAT(edited, testing::ElementsAre(expected));
}

TEST_F(MonitorFormTest, AFractionOfTheThresholdIsLostByEditing)
{
    Monitor monitor = makeMonitor();
    monitor.responseTimeThreshold = Milliseconds(450.9);
    edit(monitor);
    EXPECT_EQ(form.thresholdText(), QStringLiteral("450"));
    ASSERT_TRUE(form.save());
    EXPECT_EQ(store.monitors().first().responseTimeThreshold, Milliseconds(450));
}

TEST_F(MonitorFormTest, WhatChangedWhileTheFormWasOpenIsKept)
{
    Monitor monitor = edit(makeMonitor());
    monitor.isEnabled = false;
    store.updateMonitor(monitor);
    form.applyTitle(monitor.id, QStringLiteral("Shop of Ann"));
    ASSERT_TRUE(form.save());

    EXPECT_EQ(store.monitors().first().name, QStringLiteral("Shop of Ann"));
    EXPECT_FALSE(store.monitors().first().isEnabled);
}

TEST_F(MonitorFormTest, AMonitorThatWasDeletedMeanwhileStaysDeleted)
{
    const Monitor monitor = edit(makeMonitor());
    store.deleteMonitor(monitor.id);
    EXPECT_TRUE(form.save());
    EXPECT_TRUE(store.monitors().isEmpty());
}

TEST_F(MonitorFormTest, TheTitleNamesTheMonitor)
{
    const Monitor monitor = saveWebsite(QStringLiteral("shop.example"));
    form.applyTitle(monitor.id, QStringLiteral("Shop of Ann"));

    Monitor expected = monitor;
    expected.name = QStringLiteral("Shop of Ann");
    EXPECT_THAT(store.monitors(), testing::ElementsAre(expected));
}

TEST_F(MonitorFormTest, TheTitleOfADeletedMonitorIsDropped)
{
    const Monitor monitor = saveWebsite(QStringLiteral("shop.example"));
    store.deleteMonitor(monitor.id);
    form.applyTitle(monitor.id, QStringLiteral("Shop of Ann"));
    EXPECT_TRUE(store.monitors().isEmpty());
}

} // namespace ostrel::test
