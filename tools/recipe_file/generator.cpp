#include "generator.h"

#include "number_text.h"

#include <cmath>

namespace {

/// One kind of item. Values of a recipe lie around a middle of their own, in steps of the last decimal.
struct Kind
{
    const char* titles[LANGUAGE_COUNT];
    int dataType;
    int totalDigits;
    int decimalDigits;
    double min;
    double max;
};

const Kind KINDS[] = {
    {{"Temperature", "Temperatur", "Température", "Temperatura", "Temperatura", "Температура", "温度", "温度"},
     6,
     5,
     1,
     0,
     350},
    {{"Pressure", "Druck", "Pression", "Presión", "Pressione", "Давление", "压力", "圧力"}, 6, 5, 2, 0, 16},
    {{"Speed", "Drehzahl", "Vitesse", "Velocidad", "Velocità", "Скорость", "速度", "速度"}, 2, 4, 0, 0, 3000},
    {{"Time", "Zeit", "Temps", "Tiempo", "Tempo", "Время", "时间", "時間"}, 2, 4, 0, 0, 3600},
    {{"Weight", "Gewicht", "Poids", "Peso", "Peso", "Вес", "重量", "重量"}, 3, 7, 3, 0, 5000},
    {{"Valve", "Ventil", "Vanne", "Válvula", "Valvola", "Клапан", "阀门", "バルブ"}, 0, 1, 0, 0, 1},
    {{"Offset", "Versatz", "Décalage", "Desplazamiento", "Scostamento", "Смещение", "偏移", "オフセット"},
     2,
     4,
     1,
     -100,
     100},
    {{"Count", "Stückzahl", "Quantité", "Cantidad", "Quantità", "Количество", "数量", "数量"}, 1, 6, 0, 0, 999999},
    {{"Batch code", "Chargencode", "Code de lot", "Código de lote", "Codice lotto", "Код партии", "批次代码",
      "ロットコード"},
     7,
     6,
     0,
     0,
     12},
};
const int KIND_COUNT = static_cast<int>(sizeof(KINDS) / sizeof(KINDS[0]));

const char* const GROUP_TITLES[LANGUAGE_COUNT] = {"Trial line",     "Versuchslinie", "Ligne d'essai", "Línea de prueba",
                                                  "Linea di prova", "Опытная линия", "试验线",        "試験ライン"};
const char* const RECIPE_TITLES[LANGUAGE_COUNT] = {"Recipe",  "Rezept", "Recette", "Receta",
                                                   "Ricetta", "Рецепт", "配方",    "レシピ"};

const Kind& kindOf(int item)
{
    return KINDS[item % KIND_COUNT];
}

QVector<QString> numberedTitles(const char* const (&texts)[LANGUAGE_COUNT], int number)
{
    QVector<QString> titles;
    for (const char* text : texts)
        titles.append(QString::fromUtf8(text) + QLatin1Char(' ') + QString::number(number));
    return titles;
}

RECIPE_ADDRESS controllerAddress(const QString& regType, int number)
{
    RECIPE_ADDRESS address;
    address.devName = QLatin1String("Controller");
    address.addrPart1 = 1;
    address.regType = regType;
    address.addrPart4 = QString::number(number);
    return address;
}

/// Words that a value of the kind takes in the controller.
int words(const Kind& kind)
{
    if (kind.dataType == DATA_TYPE_TEXT)
        return kind.totalDigits;
    return kind.dataType == 1 || kind.dataType == 3 || kind.dataType == 5 || kind.dataType == 6 ? 2 : 1;
}

recipeItemInfo_t makeItem(int row, int number)
{
    const Kind& kind = kindOf(row);
    const RECIPE_ADDRESS address = controllerAddress(QLatin1String("D"), number);
    recipeItemInfo_t item;
    item.rowIndex = row;
    item.rowName = numberedTitles(kind.titles, row / KIND_COUNT + 1);
    item.devName = address.devName;
    item.regAddr = recipeRegAddr_t(address);
    item.addrPart4 = address.addrPart4;
    item.dataType = kind.dataType;
    item.totalDigits = kind.totalDigits;
    item.decimalDigits = kind.decimalDigits;
    item.min = kind.min;
    item.max = kind.max;
    return item;
}

} // namespace

Generator::Generator(int items, int recipes, std::uint64_t seed) : m_items(items), m_recipes(recipes), m_seed(seed) {}

recipeTableInfo_t Generator::group(int groupIndex) const
{
    recipeTableInfo_t info;
    info.groupIndex = groupIndex;
    for (int i = 0; i < LANGUAGE_COUNT; ++i)
        info.groupName[i] = QString::fromUtf8(GROUP_TITLES[i]);
    const RECIPE_ADDRESS notify = controllerAddress(QLatin1String("M"), 10);
    info.notify = 1;
    info.notifyDevName = notify.devName;
    info.notifyRegAddr = recipeRegAddr_t(notify);
    info.notifyAddrPart4 = notify.addrPart4;
    int number = 100;
    for (int i = 0; i < m_items; ++i) {
        info.items.append(makeItem(i, number));
        number += words(kindOf(i));
    }
    for (int c = 0; c < m_recipes; ++c)
        info.columnName.append(numberedTitles(RECIPE_TITLES, c + 1));
    return info;
}

/// Well mixed bits of seed, a and b (a fixed sequence of multiplications: the same on every machine).
std::uint64_t Generator::random(std::uint64_t a, std::uint64_t b) const
{
    std::uint64_t z = m_seed + a * 0x9E3779B97F4A7C15U + b * 0xD1B54A32D192ED03U + 0x2545F4914F6CDD1DU;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31);
}

QString Generator::value(int item, int recipe) const
{
    const Kind& kind = kindOf(item);
    const std::uint64_t i = static_cast<std::uint64_t>(item);
    const std::uint64_t bits = random(i + 1, static_cast<std::uint64_t>(recipe) + 1);
    if (kind.dataType == DATA_TYPE_TEXT) {
        const char letters[] = "ABCDEFGHJKLMNPQRSTUVWXYZ";
        return QString::fromLatin1("%1%2-%3")
            .arg(QLatin1Char(letters[bits % 24]))
            .arg(QLatin1Char(letters[bits / 24 % 24]))
            .arg(bits / 576 % 100000, 5, 10, QLatin1Char('0'));
    }
    double scale = 1;
    for (int d = 0; d < kind.decimalDigits; ++d)
        scale *= 10;
    // Whole steps of the last decimal: the middle of the item within the inner half of its range, the recipe within
    // a quarter of the range around it.
    const std::int64_t low = std::llround(kind.min * scale);
    const std::int64_t range = std::llround(kind.max * scale) - low;
    const std::int64_t quarter = range / 4;
    if (quarter == 0)
        return QString::number(low + static_cast<std::int64_t>(bits % static_cast<std::uint64_t>(range + 1)));
    const auto below = [](std::uint64_t number, std::int64_t bound) {
        return static_cast<std::int64_t>(number % static_cast<std::uint64_t>(bound));
    };
    const std::int64_t steps =
        low + quarter + below(random(i + 1, 0), 2 * quarter) - quarter / 2 + below(bits, quarter);
    return fixedNotation(static_cast<double>(steps) / scale, kind.decimalDigits);
}
