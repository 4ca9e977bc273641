#include "frame/screens/about_dialog.h"

#include "core/version.h"

#include <QLabel>
#include <QPushButton>
#include <QSysInfo>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent) {
    setObjectName(u"AboutFrm"_s);
    setWindowTitle(u"About ORVA"_s);
    auto* name = new QLabel(u"ORVA"_s);
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    name->setFont(large);
    const QString version = u"Version "_s + programVersion();
    const QString purpose = u"Plans, registers and grades of a teacher's year."_s;
    const QString platform =
        u"Qt %1, %2"_s.arg(QLatin1StringView(qVersion()), QSysInfo::prettyProductName());
    auto* ok = new QPushButton(u"OK"_s);
    ok->setObjectName(u"cmdOK"_s);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    setAccessibleDescription(version + u". "_s + purpose);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(name);
    for (const QString& text : {version, purpose, platform})
        layout->addWidget(new QLabel(text));
    layout->addWidget(ok, 0, Qt::AlignCenter);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}
