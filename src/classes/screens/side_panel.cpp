#include "classes/screens/side_panel.h"

#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

SidePanel::SidePanel(const KeyArray& keys, QWidget* parent) : QWidget(parent) {
    auto* layout = new QVBoxLayout(this);
    for (const QString& line : fixedKeyLines())
        layout->addWidget(new QLabel(line));
    auto* list = new QListWidget;
    list->setObjectName(u"List1"_s);
    list->setAccessibleName(u"Key to your own marks"_s);
    list->addItems(keys.lines);
    layout->addWidget(list, 1);
}
