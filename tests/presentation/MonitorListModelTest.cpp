#include "MonitorListModel.h"

#include "PresentationSamples.h"
#include "Printers.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

class MonitorListModelTest : public testing::Test
{
protected:
    ~MonitorListModelTest() override { EXPECT_TRUE(m_reset.isEmpty()); }

    QList<Monitor> addMonitors()
    {
        return {m_sample.add(sampleMonitor(u"A"_s)), m_sample.add(sampleMonitor(u"B"_s)),
                m_sample.add(sampleMonitor(u"C"_s))};
    }
    QString text(int row, int role) const { return m_model.index(row).data(role).toString(); }
    MonitorStatus status(int row) const
    {
        return MonitorStatus(m_model.index(row).data(MonitorListModel::statusRole).toInt());
    }
    QString names() const
    {
        QString all;
        for (int row = 0; row < m_model.rowCount(); ++row)
            all += text(row, MonitorListModel::nameRole);
        return all;
    }
    /// Each announcement as "first-last".
    static QString rowsOf(const QSignalSpy &spy)
    {
        QStringList rows;
        for (const auto &arguments : spy)
            rows += u"%1-%2"_s.arg(arguments[1].toInt()).arg(arguments[2].toInt());
        return rows.join(QLatin1Char(' '));
    }
    QString changedRows() const
    {
        QStringList rows;
        for (const auto &arguments : m_changed)
            rows += QString::number(arguments[0].toModelIndex().row());
        return rows.join(QLatin1Char(' '));
    }

    SampleStore m_sample;
    QList<Monitor> m_monitors = addMonitors();
    MonitorListModel m_model{m_sample.store};
    QAbstractItemModelTester m_tester{&m_model,
                                      QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy m_inserted{&m_model, &QAbstractItemModel::rowsInserted};
    QSignalSpy m_removed{&m_model, &QAbstractItemModel::rowsRemoved};
    QSignalSpy m_changed{&m_model, &QAbstractItemModel::dataChanged};
    QSignalSpy m_reset{&m_model, &QAbstractItemModel::modelReset};
};

} // namespace

TEST_F(MonitorListModelTest, KeepsTheStoresOrder)
{
    EXPECT_EQ(names(), u"ABC"_s);
}

TEST_F(MonitorListModelTest, EveryRoleHasANameAndAValue)
{
    const Monitor &monitor = m_monitors[0];
    m_sample.store.addCheck(upCheck(monitor, sampleNow(), 245));
    QStringList values;
    const auto roles = m_model.roleNames();
    for (int role = MonitorListModel::monitorIdRole; roles.contains(role); ++role) {
        const QVariant value = m_model.index(0).data(role);
        EXPECT_TRUE(value.isValid()) << roles[role].toStdString();
        if (role != MonitorListModel::monitorIdRole)
            values += QString::fromLatin1(roles[role]) + QLatin1Char('=') +
                      (value.metaType() == QMetaType::fromType<Tone>()
                           ? QString::number(int(value.value<Tone>()))
                           : value.toString());
    }
    EXPECT_EQ(values.join(QLatin1Char('\n')), u"url=https://shop.example/cart/\n"
                                              "isEnabled=true\n"
                                              "name=A\n"
                                              "address=shop.example/cart\n"
                                              "status=0\n"
                                              "isDown=false\n"
                                              "isPending=false\n"
                                              "resultText=245ms\n"
                                              "resultTone=0\n"
                                              "uptimeText=100%\n"
                                              "spokenText=A, up, 245 ms, 24-hour uptime 100%\n"
                                              "isChecking=false\n"
                                              "responseTimeText=245 ms\n"
                                              "cardUptimeText=100.0%\n"
                                              "cardUptimeTone=0"_s);
    EXPECT_EQ(m_model.index(0).data(MonitorListModel::monitorIdRole).toUuid(), monitor.id);
}

TEST_F(MonitorListModelTest, ACheckChangesOnlyItsMonitorsRow)
{
    EXPECT_EQ(text(1, MonitorListModel::resultTextRole), QString());
    EXPECT_EQ(text(2, MonitorListModel::resultTextRole), QString());
    m_sample.store.addCheck(upCheck(m_monitors[1], sampleNow(), 99));
    EXPECT_EQ(changedRows(), u"1"_s);
    EXPECT_EQ(text(1, MonitorListModel::resultTextRole), u"99ms"_s);
}

TEST_F(MonitorListModelTest, ACheckOfAnUnknownMonitorChangesNothing)
{
    names();
    m_sample.store.addCheck(upCheck(sampleMonitor(), sampleNow()));
    EXPECT_EQ(changedRows(), QString());
}

TEST_F(MonitorListModelTest, AddedMonitorIsInsertedAtTheEnd)
{
    m_sample.add(sampleMonitor(u"D"_s));
    EXPECT_EQ(rowsOf(m_inserted), u"3-3"_s);
    EXPECT_TRUE(m_removed.isEmpty());
    EXPECT_EQ(names(), u"ABCD"_s);
}

TEST_F(MonitorListModelTest, DeletedMonitorIsRemoved)
{
    m_sample.store.deleteMonitor(m_monitors[1].id);
    EXPECT_EQ(rowsOf(m_removed), u"1-1"_s);
    EXPECT_TRUE(m_inserted.isEmpty());
    EXPECT_EQ(names(), u"AC"_s);
}

TEST_F(MonitorListModelTest, LastMonitorDeletedLeavesNoRows)
{
    for (const Monitor &monitor : m_monitors)
        m_sample.store.deleteMonitor(monitor.id);
    EXPECT_EQ(m_model.rowCount(), 0);
}

TEST_F(MonitorListModelTest, EditedMonitorChangesInPlace)
{
    EXPECT_EQ(names(), u"ABC"_s);
    Monitor edited = m_monitors[2];
    edited.name = u"Z"_s;
    m_sample.store.updateMonitor(edited);
    EXPECT_EQ(changedRows(), u"2"_s);
    EXPECT_TRUE(m_inserted.isEmpty());
    EXPECT_TRUE(m_removed.isEmpty());
    EXPECT_EQ(names(), u"ABZ"_s);
}

TEST_F(MonitorListModelTest, PausingChangesTheRow)
{
    m_sample.store.addCheck(upCheck(m_monitors[0], sampleNow()));
    EXPECT_EQ(status(0), MonitorStatus::up);
    Monitor paused = m_monitors[0];
    paused.isEnabled = false;
    m_sample.store.updateMonitor(paused);
    EXPECT_EQ(status(0), MonitorStatus::paused);
    EXPECT_FALSE(m_model.index(0).data(MonitorListModel::isEnabledRole).toBool());
}

TEST_F(MonitorListModelTest, ARunningCheckOnRequestIsShownInItsRowUntilItEnds)
{
    const auto isChecking = [this](int row) {
        return m_model.index(row).data(MonitorListModel::isCheckingRole).toBool();
    };
    m_model.setChecking(m_monitors[1].id, true);
    EXPECT_EQ(changedRows(), u"1"_s);
    Monitor renamed = m_monitors[1];
    renamed.name = u"D"_s;
    m_sample.store.updateMonitor(renamed);
    EXPECT_TRUE(isChecking(1)) << "an edit doesn't end it";
    EXPECT_FALSE(isChecking(0));
    m_model.setChecking(m_monitors[1].id, false);
    EXPECT_FALSE(isChecking(1));
    m_model.setChecking(QUuid::createUuid(), true);
    EXPECT_EQ(changedRows(), u"1 1 1"_s);
}

TEST_F(MonitorListModelTest, RefreshAnnouncesTheRowsThatTimeHasChanged)
{
    m_sample.store.addCheck(downCheck(m_monitors[0], sampleNow()));
    m_sample.store.addCheck(upCheck(m_monitors[0], sampleNow() + 1h));
    EXPECT_EQ(text(0, MonitorListModel::uptimeTextRole), u"50.0%"_s);
    EXPECT_EQ(text(1, MonitorListModel::uptimeTextRole), u"100%"_s);
    m_changed.clear();

    m_model.refresh();
    EXPECT_EQ(changedRows(), QString());
    m_sample.now += 24h + 30min;
    m_model.refresh();
    EXPECT_EQ(changedRows(), u"0"_s);
    EXPECT_EQ(text(0, MonitorListModel::uptimeTextRole), u"100%"_s);
}

} // namespace ostrel::test
