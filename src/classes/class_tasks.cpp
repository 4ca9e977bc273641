#include "classes/class_tasks.h"

using namespace Qt::StringLiterals;

const QList<ClassTaskEntry>& classTasks() {
    static const QList<ClassTaskEntry> tasks{
        {ClassTask::AddPupil, u"Add a New Pupil"_s, {}},
        {ClassTask::CreateClass, u"Create a New Class"_s, {}},
        {ClassTask::ImportList, u"Import a Class List"_s,
         u"If you Copied your Class List from Excel you will be able to Paste it instead of "
         "importing."_s},
        {ClassTask::DeletePupil, u"Delete Current Pupil"_s,
         u"To delete ALL PUPILS hold down the Ctrl key and click OK."_s},
        {ClassTask::DeleteClass, u"Delete Current Class"_s, {}},
        {ClassTask::Export, u"Export to Excel"_s, {}},
    };
    return tasks;
}
