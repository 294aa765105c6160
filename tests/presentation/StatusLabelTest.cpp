#include "StatusLabel.h"

#include "Printers.h"
#include "TextLanguage.h"

#include <QCoreApplication>
#include <QTranslator>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// The user's region while it lives.
struct ScopedRegion
{
    explicit ScopedRegion(const QString &name) { QLocale::setDefault(QLocale(name)); }
    ~ScopedRegion() { QLocale::setDefault(before); }
    ScopedRegion(const ScopedRegion &) = delete;
    ScopedRegion &operator=(const ScopedRegion &) = delete;

    QLocale before;
};

/// Says that the texts are in the language @p code.
class FakeTranslation : public QTranslator
{
public:
    explicit FakeTranslation(const QString &code)
        : m_code(code)
    {
        QCoreApplication::installTranslator(this);
    }
    ~FakeTranslation() override { QCoreApplication::removeTranslator(this); }

    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char *context, const char * /*text*/,
                                    const char * /*disambiguation*/, int /*n*/) const override
    {
        return QLatin1String(context) == QLatin1String("TextLanguage") ? m_code : QString();
    }

private:
    QString m_code;
};

} // namespace

TEST(StatusLabelTest, CapitalsAreThoseOfTheTextsLanguageNotOfTheRegion)
{
    const ScopedRegion turkey(u"tr_TR"_s);
    EXPECT_EQ(pillWord(MonitorStatus::pending), u"PENDING"_s);
    const FakeTranslation turkish(u"tr"_s);
    EXPECT_EQ(pillWord(MonitorStatus::pending), u"PENDİNG"_s);
}

TEST(TextLanguageTest, IsEnglishUnlessATranslationSaysWhatItIs)
{
    const ScopedRegion germany(u"de_DE"_s);
    EXPECT_EQ(textLanguage().language(), QLocale::English);
    {
        const FakeTranslation brazilian(u"pt-BR"_s);
        EXPECT_EQ(textLanguage(), QLocale(QLocale::Portuguese, QLocale::Brazil));
    }
    const FakeTranslation nonsense(u"[en]"_s);
    EXPECT_EQ(textLanguage().language(), QLocale::English);
}

TEST(StatusLabelTest, ThePillsWordsAreInCapitals)
{
    EXPECT_EQ(pillWord(MonitorStatus::up), u"UP"_s);
    EXPECT_EQ(pillWord(MonitorStatus::down), u"DOWN"_s);
    EXPECT_EQ(pillWord(MonitorStatus::paused), u"PAUSED"_s);
    EXPECT_EQ(pillWord(MonitorStatus::pending), u"PENDING"_s);
}

TEST(StatusLabelTest, PausedHasTheMoon)
{
    EXPECT_EQ(statusSymbol(MonitorStatus::paused), u"moon.circle.fill"_s);
}

} // namespace ostrel::test
