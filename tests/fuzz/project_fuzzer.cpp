// The panel's project files, and the files in which plug-ins state their properties. A sheet that a project asks for
// is made, started and painted as the project says.
#include "RecipeDB.h"
#include "RecipeSheetItems.h"
#include "RecipeSheetThread.h"
#include "fuzz_frame.h"
#include "json_mutator.h"
#include "project_file.h"
#include "runtime.h"

#include <QCoreApplication>
#include <QImage>
#include <QPainter>

#include <memory>

namespace {

Reached runs("runs");
Reached loaded("loaded");
Reached started("started");
Reached refused("refused");
Reached rulesLoaded("rules_loaded");

ItemTypeRules sheetRules;

class Makes : public ItemObjectFactory
{
public:
    object* createItemObject(const QString&, const QString& name) override { return new object(name); }
};

void startSheet(object* properties)
{
    static QImage* const image = new QImage(320, 240, QImage::Format_RGB32);
    RecipeSheetItems sheet;
    Runtime::place(&sheet, properties);
    if (Runtime::instance().start(&sheet))
        ++started;
    QPainter painter(image);
    sheet.HMIpaint(nullptr, QString(), &painter, false);
}

void useProject(const ProjectFile& project)
{
    Makes factory;
    delete project.createTree(&factory);
    object* const root = project.createTree(nullptr);
    Runtime::instance().setProject(root);
    Runtime::instance().setLanguage(project.panel().language);
    for (int i = 0; i < project.items().size(); ++i) {
        if (project.items().at(i).typeName == QLatin1String("RecipeSheet"))
            startSheet(root->children().at(i));
    }
    QCoreApplication::processEvents();
    Runtime::instance().setProject(nullptr);
    RecipeSheetThread::release();
    RecipeDB::release();
    RecipeSheetItems::s_instance = nullptr;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    startFuzzing();
    QStringList problems;
    if (!sheetRules.load(QString::fromLatin1(SHEET_RULES), problems))
        report(problems.join(QLatin1Char('\n')).toStdString());
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ++runs;
    writeProjectFile("project.json", data, size);
    const QString name = projectFile("project.json");

    ProjectFile project;
    project.addRules(sheetRules);
    if (project.load(name)) {
        ++loaded;
        useProject(project);
    } else {
        if (project.problems().isEmpty())
            report("a project is refused and nobody is told why");
        ++refused;
    }

    ItemTypeRules rules;
    QStringList problems;
    if (rules.load(name, problems))
        ++rulesLoaded;
    else if (problems.isEmpty())
        report("rules are refused and nobody is told why");
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed)
{
    return mutateJson(data, size, maxSize, seed);
}
