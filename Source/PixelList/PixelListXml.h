// Pixel list files: a list of defects as XML.
#pragma once

#include "DefectInfo.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <optional>
#include <vector>

class TreeModel;

// The file's bytes: a root "Camera" with one "Pixel" for each entry, in UTF-8, without XML declaration.
QByteArray ToXml(const QVector<DefectInfo>& list);

// Writes the file, replacing an old one in one step. An empty list writes nothing, and a file that cannot be written is
// no error.
void SaveAsXmlImpl(const QString& path, const QVector<DefectInfo>& list);

// The entries of a file, all with the color of new defects and numbered from 0; those at a position that an earlier one
// has are dropped. Nothing when the file cannot be read, is no XML, nests elements absurdly deep, holds no "Pixel", or
// when one entry lacks a number, does not fit on a sensor of width times height pixels or is of a kind that is not in
// allowedTypes (DefectUiType).
std::optional<QVector<DefectInfo>> ReadXmlPixelList(const QString& path, int width, int height,
                                                    const std::vector<int>& allowedTypes);

// Replaces the model's list by a file's entries, as new defects; false, and an empty list, for a file of which
// ReadXmlPixelList gives nothing.
bool LoadFromXmlImpl(const QString& path, TreeModel* model, int width, int height,
                     const std::vector<int>& allowedTypes);

// The same checks on entries that ParsePixelListXml read; no entries are the empty list.
std::optional<QVector<DefectInfo>> AcceptEntries(const QVector<DefectInfo>& entries, int width, int height,
                                                 const std::vector<int>& allowedTypes);
