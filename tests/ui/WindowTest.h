#pragma once

#include "DesktopFakes.h"
#include "MainWindowLoader.h"
#include "PresentationSamples.h"
#include "Printers.h"
#include "PrivatePreferences.h"
#include "ScriptedEngine.h"
#include "WaitFor.h"
#include "WindowModels.h"

#include <QAccessible>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

namespace ostrel::test {

using namespace Qt::StringLiterals;

/// The whole window over a store that the test fills.
class WindowTest : public testing::Test
{
protected:
    void show()
    {
        window = views.load(m_models);
        ASSERT_TRUE(window);
        window->show();
        window->requestActivate();
        ASSERT_TRUE(waitFor([&] { return window->isExposed() && window->isActive(); }));
        window->grabWindow();
    }

    [[nodiscard]] static QQuickItem *find(QQuickItem *parent, const QString &name)
    {
        for (QQuickItem *child : parent->childItems()) {
            if (child->objectName() == name)
                return child;
            if (QQuickItem *item = find(child, name))
                return item;
        }
        return nullptr;
    }
    /// The texts of all items with that name in @p parent, from top to bottom.
    [[nodiscard]] static QStringList textsOf(const QQuickItem *parent, const QString &name)
    {
        QStringList texts;
        for (const QQuickItem *child : parent->childItems()) {
            if (child->objectName() == name)
                texts += child->property("text").toString();
            texts += textsOf(child, name);
        }
        return texts;
    }
    [[nodiscard]] QQuickItem *item(const char *name) const
    {
        return find(window->contentItem(), QString::fromLatin1(name));
    }
    [[nodiscard]] QString textOf(const char *name) const
    {
        const QQuickItem *found = item(name);
        return found ? found->property("text").toString() : u"(none)"_s;
    }
    [[nodiscard]] QQuickItem *row(int index) const
    {
        QQuickItem *found = nullptr;
        QMetaObject::invokeMethod(item("list"), "itemAtIndex", Q_RETURN_ARG(QQuickItem *, found),
                                  Q_ARG(int, index));
        return found;
    }
    [[nodiscard]] QPoint middleOf(const QQuickItem &target) const
    {
        return target.mapToScene(target.boundingRect().center()).toPoint();
    }
    void click(const QQuickItem &target, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(window, Qt::LeftButton, modifiers, middleOf(target));
    }
    /// Unlike keys and clicks, this also reaches items under a sheet.
    void pressByAssistiveTool(const char *name)
    {
        QAccessibleInterface *target = QAccessible::queryAccessibleInterface(item(name));
        ASSERT_TRUE(target && target->actionInterface());
        target->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    void press(Qt::Key key) { QTest::keyClick(window, key); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        QTest::keyClick(window, key, modifiers);
    }
    void type(const char *text)
    {
        for (; *text; ++text)
            QTest::keyClick(window, *text);
    }
    [[nodiscard]] bool showsDashboard() const { return item("dashboard")->isVisible(); }

    /// The name on the page of the selected monitor.
    [[nodiscard]] QString pageName() const
    {
        const QQuickItem *page = item("detailPage");
        return page->isVisible() ? find(item("detailPage"), u"name"_s)->property("text").toString()
                                 : u"(dashboard)"_s;
    }
    /// The title of the form's sheet, which is above the window's content.
    [[nodiscard]] QString sheetTitle() const
    {
        const QQuickItem *title = find(window->contentItem(), u"title"_s);
        return title && title->isVisible() ? title->property("text").toString() : QString();
    }

    SampleStore samples;
    ScriptedEngine scripted{samples.store};
    RecordingWorkspace workspace;

private:
    PrivatePreferences m_preferences;
    RecordingLoginItem m_loginItem;
    WindowModels m_models{samples.store, scripted.engine, scripted.networkPresence, m_loginItem,
                          workspace};

protected:
    MainWindowLoader views;
    QQuickWindow *window = nullptr;
};

} // namespace ostrel::test
