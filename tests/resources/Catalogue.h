// The entries of a translation catalogue, and what is wrong with them.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

struct CatalogueEntry
{
    QString context;
    QString source;
    QString comment;
    QString translation;
    QString type; // "", "unfinished", "vanished" or "obsolete"
};

// Empty when the file cannot be read as a catalogue; the test fails then as well.
QVector<CatalogueEntry> ReadCatalogue(const QString& path);

// One sentence for each text that is in the sources and not fully in the catalogue, or the other way round, and for
// each text of the sources that has no context of its own.
QStringList FaultsAgainstSources(const QString& catalogue, const QString& sources);

// Why a translation does not fit its source: place markers, tags, tabs, line breaks or outer blanks differ. Empty: it
// fits.
QString Misfit(const QString& source, const QString& translation);
