#pragma once

#include <QHash>
#include <QString>

class CHVSDataset;

/// Every dataset of the process by its click number. Datasets enter and leave it by themselves.
QHash<QString, CHVSDataset*>& datasetIndex();
