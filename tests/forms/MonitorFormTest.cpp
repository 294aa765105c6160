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

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

const QString clipboardAddress = u"https://a.example/path"_s;

/// A monitor with an id of its own.
Monitor makeMonitor()
{
    return {.id = QUuid::createUuid(),
            .name = u"Shop"_s,
            .url = u"https://shop.example/"_s,
            .createdAt = systemNow()};
}

/// A form whose monitors are stored, but not watched.
class MonitorFormTest : public testing::Test
{
protected:
    MonitorFormTest()
    {
        QObject::connect(&form, &MonitorForm::created, &form, [this](const Monitor &monitor) {
            steps += u"created"_s;
            created.push_back(monitor);
            store.addMonitor(monitor);
        });
        QObject::connect(&form, &MonitorForm::edited, &form, [this](const Monitor &monitor) {
            steps += u"edited"_s;
            edited.push_back(monitor);
            store.updateMonitor(monitor);
        });
        QObject::connect(&form, &MonitorForm::websiteCreated, &form,
                         [this](const QUuid &id, const QString &address) {
                             steps += u"told"_s;
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
    MonitorStore store{folder.filePath(u"data"_s)};
    MonitorForm form{store, [this] { return now; }};
    QStringList steps; ///< The signals of the form, in order.
    std::vector<Monitor> created;
    std::vector<Monitor> edited;
    std::vector<std::pair<QUuid, QString>> websites;
    int changes = 0;
};

} // namespace

TEST_F(MonitorFormTest, CreateModeBeginsEmpty)
{
    form.beginCreate(QString());

    EXPECT_EQ(form.title(), u"New Monitor"_s);
    EXPECT_EQ(form.confirmText(), u"Start Monitoring"_s);
    EXPECT_TRUE(form.isWebsite());
    EXPECT_FALSE(form.isValid());
    EXPECT_EQ(form.url(), QString());
    EXPECT_EQ(form.portText(), QString());
    EXPECT_EQ(form.interval(), 300);
    EXPECT_EQ(form.method(), u"GET"_s);
    EXPECT_EQ(form.timeout(), 30);
    EXPECT_EQ(form.monitorType(), u"http"_s);
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
    monitor.keyword = u"Welcome"_s;
    form.beginEdit(monitor, QString());

    EXPECT_EQ(form.title(), u"Edit Monitor"_s);
    EXPECT_EQ(form.confirmText(), u"Save"_s);
    EXPECT_TRUE(form.isValid());
    EXPECT_EQ(form.url(), monitor.url);
    EXPECT_EQ(form.portText(), u"5432"_s);
    EXPECT_EQ(form.interval(), 60);
    EXPECT_EQ(form.method(), u"POST"_s);
    EXPECT_EQ(form.monitorType(), u"port"_s);
    EXPECT_EQ(form.keyword(), u"Welcome"_s);
}

TEST_F(MonitorFormTest, BeginningAgainForgetsEarlierInput)
{
    form.beginEdit(makeMonitor(), clipboardAddress);
    form.setShowAdvanced(true);
    form.setThresholdText(u"500"_s);
    form.setMonitorType(u"port"_s);

    form.beginCreate(QString());
    EXPECT_EQ(form.title(), u"New Monitor"_s);
    EXPECT_FALSE(form.showAdvanced());
    EXPECT_EQ(form.thresholdText(), QString());
    EXPECT_EQ(form.monitorType(), u"http"_s);
    EXPECT_EQ(form.clipboardURL(), QString());
}

TEST_F(MonitorFormTest, EveryFieldSignalsOnlyItsOwnChanges)
{
    const std::vector<std::pair<const char *, QVariant>> values = {
        {"url", u"a.b"_s},
        {"portText", u"80"_s},
        {"interval", 60.0},
        {"method", u"HEAD"_s},
        {"timeout", 5.0},
        {"monitorType", u"port"_s},
        {"keyword", u"Welcome"_s},
        {"keywordShouldExist", false},
        {"thresholdText", u"500"_s},
        {"showAdvanced", true},
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

TEST_F(MonitorFormTest, AnInvalidMethodTypeOrTimeoutChangesNothing)
{
    form.beginCreate(QString());
    changes = 0;
    form.setMethod(u"PATCH"_s);
    form.setMonitorType(u"ftp"_s);
    for (const double seconds : {0.0, -1.0, qInf(), qQNaN()})
        form.setTimeout(seconds);
    form.typeTimeout(u"soon"_s);
    form.commitTimeout();

    EXPECT_EQ(changes, 0);
    EXPECT_EQ(form.method(), u"GET"_s);
    EXPECT_EQ(form.monitorType(), u"http"_s);
    EXPECT_EQ(form.timeout(), 30);
}

TEST_F(MonitorFormTest, TheTimeoutIsShownAndTypedInTheUsersLocale)
{
    QLocale::setDefault(QLocale(u"de_DE"_s));
    form.beginCreate(QString());
    form.typeTimeout(u"2,5"_s);
    form.commitTimeout();
    EXPECT_EQ(form.timeout(), 2.5);
    EXPECT_EQ(form.timeoutText(), u"2,5"_s);
}

TEST_F(MonitorFormTest, ATimeoutCountsOnceItIsTypedToItsEnd)
{
    form.beginCreate(QString());
    form.setUrl(u"shop.example"_s);
    for (const QString &typed : {u"3"_s, QString()})
        form.typeTimeout(typed);
    EXPECT_EQ(form.timeout(), 30);
    ASSERT_TRUE(form.save());
    EXPECT_EQ(store.monitors().last().timeout, Seconds(30));
}

TEST_F(MonitorFormTest, SavingTakesTheTimeoutThatIsStillBeingTyped)
{
    form.beginCreate(QString());
    form.setUrl(u"shop.example"_s);
    form.typeTimeout(u"7"_s);
    ASSERT_TRUE(form.save());
    EXPECT_EQ(store.monitors().last().timeout, Seconds(7));
}

TEST_F(MonitorFormTest, WhatWasTypedIsForgottenWhenTheFormBeginsAnew)
{
    form.beginCreate(QString());
    form.typeTimeout(u"7"_s);
    form.beginCreate(QString());
    form.commitTimeout();
    EXPECT_EQ(form.timeout(), 30);
}

TEST_F(MonitorFormTest, TheThresholdIsTypedWithAPointInEveryLocale)
{
    QLocale::setDefault(QLocale(u"de_DE"_s));
    form.beginCreate(QString());
    form.setUrl(u"shop.example"_s);
    form.setThresholdText(u"450.5"_s);
    ASSERT_TRUE(form.save());
    EXPECT_EQ(store.monitors().last().responseTimeThreshold, Milliseconds(450.5));
}

TEST_F(MonitorFormTest, OffersIntervalsAndMethodsInTheirOrder)
{
    EXPECT_THAT(form.intervals(), testing::ElementsAre(30, 60, 300, 900, 1800, 3600));
    EXPECT_EQ(form.methods(), QStringList({u"GET"_s, u"HEAD"_s, u"POST"_s}));
    QStringList texts;
    for (const double interval : form.intervals())
        texts += form.intervalText(interval);
    EXPECT_EQ(texts.join(u' '), u"30s 1m 5m 15m 30m 1h"_s);
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
    form.setUrl(u"myhost:8080"_s);

    EXPECT_EQ(form.monitorType(), u"port"_s);
    EXPECT_EQ(form.url(), u"myhost"_s);
    EXPECT_EQ(form.portText(), u"8080"_s);
    EXPECT_TRUE(form.isValid());
    EXPECT_EQ(changes, 1);
}

TEST_F(MonitorFormTest, APathTypedBehindADetectedPortMakesItAWebAddress)
{
    form.beginCreate(QString());
    form.setUrl(u"shop.local:8"_s);
    form.setPortText(u"8080"_s);
    ASSERT_EQ(form.monitorType(), u"port"_s);
    changes = 0;
    form.setPortText(u"8080/"_s);

    EXPECT_EQ(form.monitorType(), u"http"_s);
    EXPECT_EQ(form.url(), u"shop.local:8080/"_s);
    EXPECT_EQ(form.portText(), QString());
    EXPECT_TRUE(form.isValid());
    EXPECT_EQ(changes, 1);
    form.setUrl(u"shop.local:8080/status"_s);
    EXPECT_EQ(form.monitorType(), u"http"_s);
}

TEST_F(MonitorFormTest, APathTypedBehindAChosenPortIsNotAPort)
{
    form.beginCreate(QString());
    form.setUrl(u"localhost:8"_s);
    form.setMonitorType(u"port"_s);
    form.setPortText(u"8080/"_s);
    EXPECT_EQ(form.monitorType(), u"port"_s);
    EXPECT_EQ(form.portText(), u"8080/"_s);
    EXPECT_FALSE(form.isValid());
}

TEST_F(MonitorFormTest, PortsOutOfRangeDoNotSwitchToPortMode)
{
    for (const QString &text : {u"myhost:0"_s, u"myhost:70000"_s}) {
        form.beginCreate(QString());
        form.setUrl(text);
        EXPECT_EQ(form.monitorType(), u"http"_s);
        EXPECT_EQ(form.url(), text);
        EXPECT_EQ(form.portText(), QString());
    }
}

TEST_F(MonitorFormTest, TheHostFieldIsNotSplit)
{
    form.beginCreate(QString());
    form.setMonitorType(u"port"_s);
    form.setUrl(u"myhost:8080"_s);
    EXPECT_EQ(form.url(), u"myhost:8080"_s);
    EXPECT_EQ(form.portText(), QString());
}

TEST_F(MonitorFormTest, AMonitorThatIsShownKeepsItsType)
{
    Monitor monitor = makeMonitor();
    monitor.url = u"myhost:8080"_s;
    form.beginEdit(monitor, QString());
    form.setUrl(monitor.url);
    EXPECT_EQ(form.monitorType(), u"http"_s);
    EXPECT_EQ(form.url(), monitor.url);
}

TEST_F(MonitorFormTest, TheClipboardsAddressIsOfferedOnOneLineAndPastedUnchanged)
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
    form.beginCreate(u"  https://a.example/path \n"_s);
    EXPECT_EQ(form.clipboardURL(), clipboardAddress);
    EXPECT_TRUE(form.showsClipboardSuggestion());
    EXPECT_EQ(form.suggestionText(), u"Paste: https://a.example/path"_s);
}

TEST_F(MonitorFormTest, OtherTextsOnTheClipboardOfferNothing)
{
    for (const QString &text : {u"ftp://x"_s, u"example.org"_s}) {
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
    form.setUrl(u"a"_s);
    EXPECT_FALSE(form.showsClipboardSuggestion());
    form.setUrl(QString());
    EXPECT_TRUE(form.showsClipboardSuggestion());
    form.setMonitorType(u"port"_s);
    EXPECT_FALSE(form.showsClipboardSuggestion());
}

TEST_F(MonitorFormTest, EditModeReadsTheClipboardButSuggestsNothing)
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
    form.setUrl(u"localhost"_s);
    EXPECT_FALSE(form.save());
    EXPECT_TRUE(store.monitors().isEmpty());
    EXPECT_TRUE(steps.isEmpty());
}

TEST_F(MonitorFormTest, LocalhostIsAcceptedWithItsScheme)
{
    EXPECT_EQ(saveWebsite(u"http://localhost:3000"_s).url, u"http://localhost:3000"_s);
}

TEST_F(MonitorFormTest, AWebsiteIsSavedWithASchemeAndNamedAfterItsHost)
{
    const Monitor plain = saveWebsite(u"example.org"_s);
    EXPECT_EQ(plain.url, u"https://example.org"_s);
    EXPECT_EQ(plain.name, u"example.org"_s);
    EXPECT_EQ(plain.createdAt, now);
    EXPECT_EQ(saveWebsite(u"www.example.org"_s).name, u"example.org"_s);
}

TEST_F(MonitorFormTest, AHostThatBeginsWithHttpIsSavedAsWritten)
{
    const Monitor monitor = saveWebsite(u"httpbin.local"_s);
    EXPECT_EQ(monitor.url, u"httpbin.local"_s);
    EXPECT_EQ(monitor.name, u"httpbin.local"_s);
}

TEST_F(MonitorFormTest, ANewWebsiteIsSignalledAsAMonitorAndThenAsAWebsite)
{
    form.beginCreate(QString());
    form.setUrl(u"shop.example"_s);
    ASSERT_TRUE(form.save());

    EXPECT_EQ(steps.join(u' '), u"created told"_s);
    const Monitor &monitor = created.front();
    EXPECT_EQ(monitor.url, u"https://shop.example"_s);
    EXPECT_THAT(websites, testing::ElementsAre(std::pair(monitor.id, monitor.url)));
}

TEST_F(MonitorFormTest, ANewPortMonitorIsNamedAfterHostAndPort)
{
    form.beginCreate(QString());
    form.setMonitorType(u"port"_s);
    form.setUrl(u" db "_s);
    form.setPortText(u"5432"_s);
    ASSERT_TRUE(form.save());

    const Monitor monitor = store.monitors().last();
    EXPECT_EQ(monitor.name, u"db:5432"_s);
    EXPECT_EQ(monitor.url, u"db"_s);
    EXPECT_EQ(monitor.port, 5432);
    EXPECT_EQ(steps.join(u' '), u"created"_s);
}

TEST_F(MonitorFormTest, EditingNeverRenames)
{
    const Monitor before = edit(makeMonitor());
    form.setUrl(u"other.example"_s);
    ASSERT_TRUE(form.save());

    Monitor expected = before;
    expected.url = u"https://other.example"_s;
    EXPECT_THAT(store.monitors(), testing::ElementsAre(expected));
    EXPECT_EQ(steps.join(u' '), u"edited"_s);
}

TEST_F(MonitorFormTest, AnEditedMonitorIsSignalled)
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
    EXPECT_EQ(form.thresholdText(), u"450"_s);
    ASSERT_TRUE(form.save());
    EXPECT_EQ(store.monitors().first().responseTimeThreshold, Milliseconds(450));
}

TEST_F(MonitorFormTest, ChangesMadeWhileTheFormWasOpenAreKept)
{
    Monitor monitor = edit(makeMonitor());
    monitor.isEnabled = false;
    store.updateMonitor(monitor);
    form.applyTitle(monitor.id, u"Shop of Ann"_s);
    ASSERT_TRUE(form.save());

    EXPECT_EQ(store.monitors().first().name, u"Shop of Ann"_s);
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
    const Monitor monitor = saveWebsite(u"shop.example"_s);
    form.applyTitle(monitor.id, u"Shop of Ann"_s);

    Monitor expected = monitor;
    expected.name = u"Shop of Ann"_s;
    EXPECT_THAT(store.monitors(), testing::ElementsAre(expected));
}

TEST_F(MonitorFormTest, TheTitleOfADeletedMonitorIsDropped)
{
    const Monitor monitor = saveWebsite(u"shop.example"_s);
    store.deleteMonitor(monitor.id);
    form.applyTitle(monitor.id, u"Shop of Ann"_s);
    EXPECT_TRUE(store.monitors().isEmpty());
}

} // namespace ostrel::test
