// A language in which every text stands in brackets and is a third longer, as German is.
#pragma once

#include <QCoreApplication>
#include <QTranslator>

// The program speaks it while it lives; the widgets have heard of that when its constructor or destructor returns.
class OtherLanguage final : public QTranslator
{
public:
    OtherLanguage()
    {
        QCoreApplication::installTranslator(this);
        QCoreApplication::processEvents();
    }
    ~OtherLanguage() override
    {
        QCoreApplication::removeTranslator(this);
        QCoreApplication::processEvents();
    }
    static QString Of(const char* text)
    {
        const QString source = QString::fromUtf8(text);
        return QLatin1Char('<') + source + QString(source.size() / 3, QLatin1Char('x')) + QLatin1Char('>');
    }
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* text, const char*, int) const override { return Of(text); }
};
