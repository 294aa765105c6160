#include "ForeignTexts.h"

#include "MonitorDetail.h"
#include "MonitorListModel.h"
#include "PresentationSamples.h"
#include "Printers.h"
#include "RecentChecksModel.h"
#include "StatusMenuEntry.h"

#include <QMetaProperty>

#include <gtest/gtest.h>

#include <string>

namespace ostrel::test {

namespace {

/// A monitor whose texts are all foreign, with a check that failed for a foreign reason.
class ForeignTextsTest : public testing::TestWithParam<ForeignText>
{
protected:
    ForeignTextsTest()
    {
        Monitor named = sampleMonitor(GetParam().text);
        named.url = GetParam().text;
        m_monitors = {add(named)};
        named.id = QUuid::createUuid();
        named.name.clear();
        m_monitors.append(add(named));
    }

    /// Expects every text that @p model gives to QML to be fit for people, except the one that only
    /// looks up an icon.
    static void expectFit(const QAbstractItemModel &model, int rawRole)
    {
        const auto roles = model.roleNames();
        for (int row = 0; row < model.rowCount(); ++row) {
            for (auto role = roles.cbegin(); role != roles.cend(); ++role) {
                const QVariant value = model.index(row, 0).data(role.key());
                if (role.key() != rawRole && value.typeId() == QMetaType::QString) {
                    EXPECT_TRUE(isFitForPeople(value.toString())) << role->toStdString();
                }
            }
        }
    }

    SampleStore m_sample;
    QList<Monitor> m_monitors;

private:
    Monitor add(const Monitor &monitor)
    {
        return m_sample.add(monitor, {downCheck(monitor, sampleNow(), GetParam().text)});
    }
};

} // namespace

TEST_P(ForeignTextsTest, RowsAndCardsAreFitForPeople)
{
    const MonitorListModel model(m_sample.store);
    expectFit(model, MonitorListModel::urlRole);
    EXPECT_EQ(model.index(0).data(MonitorListModel::urlRole), GetParam().text);
}

TEST_P(ForeignTextsTest, RecentChecksAreFitForPeople)
{
    RecentChecksModel model(m_sample.store);
    model.setMonitorId(m_monitors[0].id);
    ASSERT_EQ(model.rowCount(), 1);
    expectFit(model, -1);
}

TEST_P(ForeignTextsTest, ThePageIsFitForPeople)
{
    for (const Monitor &monitor : m_monitors) {
        const auto detail = monitorDetail(m_sample.store, monitor, {m_sample.now});
        const QMetaObject &fields = MonitorDetail::staticMetaObject;
        for (int i = 0; i < fields.propertyCount(); ++i) {
            const QMetaProperty field = fields.property(i);
            if (field.typeId() == QMetaType::QString && field.name() != QByteArray("url")) {
                EXPECT_TRUE(isFitForPeople(field.readOnGadget(&detail).toString())) << field.name();
            }
        }
        EXPECT_EQ(detail.url, GetParam().text);
    }
}

TEST_P(ForeignTextsTest, TheStatusBarsEntriesAreFitForPeople)
{
    for (const Monitor &monitor : m_monitors)
        EXPECT_TRUE(isFitForPeople(statusMenuEntry(monitor, MonitorStatus::down, {}).name));
}

INSTANTIATE_TEST_SUITE_P(Table, ForeignTextsTest, testing::ValuesIn(foreignTexts()),
                         [](const auto &test) { return std::string(test.param.name); });

} // namespace ostrel::test
