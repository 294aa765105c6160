#include "TextLanguage.h"

#include <QCoreApplication>

namespace ostrel {

QLocale textLanguage()
{
    //: The code of the language that you translate to, for example "pt-BR".
    const QString code = QCoreApplication::translate("TextLanguage", "en");
    const QLocale language(code);
    return language.language() == QLocale::C ? QLocale(QLocale::English) : language;
}

} // namespace ostrel
