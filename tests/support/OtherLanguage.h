// A language in which every text stands in brackets and is a third longer, as German is.
#pragma once

#include "Widgets.h"

#include <QCoreApplication>
#include <QRegularExpression>
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

// Texts, tool tips and accessible names below a widget.
inline QStringList TextsIn(const QWidget& parent)
{
    QStringList texts;
    for (const QWidget* widget : parent.findChildren<QWidget*>())
    {
        texts << widget->property("text").toString() << widget->toolTip() << widget->accessibleName();
    }
    texts.removeAll({});
    return texts;
}

// Each text but the ones that are no words of the program's, whole, and back again; what is in sight is not cut.
inline void ExpectFollowsTheLanguage(const QWidget& parent, const char* fixed)
{
    const QRegularExpression expression(QRegularExpression::anchoredPattern(fixed));
    const QStringList english = TextsIn(parent);
    {
        const OtherLanguage language;
        ExpectNothingClipped(parent);
        for (const QString& text : TextsIn(parent))
        {
            EXPECT_TRUE(text.contains("x>") || expression.match(text).hasMatch()) << text.toStdString();
        }
    }
    EXPECT_EQ(TextsIn(parent), english);
}
