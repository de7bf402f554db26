<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru" sourcelanguage="en">
<context>
    <name>OnScreenKeyboard</name>
    <message>
        <source>The screen is small: keys are only %1 mm.</source>
        <translation>Малый экран: клавиши всего %1 мм.</translation>
    </message>
    <message>
        <source>Enter a number.</source>
        <translation>Введите число.</translation>
    </message>
    <message>
        <source>This is not a number.</source>
        <translation>Это не число.</translation>
    </message>
    <message>
        <source>Only whole numbers are possible.</source>
        <translation>Допустимы только целые числа.</translation>
    </message>
    <message>
        <source>Digits after the point: %1 at most.</source>
        <translation>Знаков после точки: не более %1.</translation>
    </message>
    <message>
        <source>Too many digits.</source>
        <translation>Слишком много цифр.</translation>
    </message>
    <message>
        <source>Too small: the smallest value is %1.</source>
        <translation>Слишком малое значение: минимум %1.</translation>
    </message>
    <message>
        <source>Too large: the largest value is %1.</source>
        <translation>Слишком большое значение: максимум %1.</translation>
    </message>
    <message>
        <source>Too long: the greatest length is %1.</source>
        <translation>Слишком длинно: предел %1 символов.</translation>
    </message>
    <message>
        <source>No value is possible: the limits are %1 to %2.</source>
        <translation>Нет допустимых значений: пределы от %1 до %2.</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Текст</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Значение</translation>
    </message>
    <message>
        <source>Old: %1</source>
        <translation>Было: %1</translation>
    </message>
    <message>
        <source>Length: up to %1</source>
        <translation>Длина: до %1</translation>
    </message>
    <message>
        <source>Min: %1</source>
        <translation>Мин: %1</translation>
    </message>
    <message>
        <source>Max: %1</source>
        <translation>Макс: %1</translation>
    </message>
    <message>
        <source>CLR</source>
        <comment>key that clears the whole entry, three letters</comment>
        <translation>СБР</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>ОК</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
</context>
<context>
    <name>PanelSession</name>
    <message>
        <source>Changes that are not saved were not sent.</source>
        <translation>Несохранённые изменения не отправлены.</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>&amp;Yes</source>
        <translation>Да</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>Нет</translation>
    </message>
</context>
<context>
    <name>RecipeTransfer</name>
    <message>
        <source>%1 Nothing was sent.</source>
        <translation>%1 Ничего не отправлено.</translation>
    </message>
    <message>
        <source>Recipes are being added or deleted; try again in a moment.</source>
        <translation>Рецепты добавляются или удаляются; повторите чуть позже.</translation>
    </message>
    <message>
        <source>No plug-in that is loaded can load recipes.</source>
        <translation>Ни один загруженный модуль не умеет читать рецепты.</translation>
    </message>
    <message>
        <source>No recipe is selected.</source>
        <translation>Рецепт не выбран.</translation>
    </message>
    <message>
        <source>It is not known of which group the recipe is; tap the recipe.</source>
        <translation>Неизвестно, к какой группе относится рецепт; коснитесь рецепта.</translation>
    </message>
    <message>
        <source>Group %1 cannot be read from the recipe file.</source>
        <translation>Группу %1 не удаётся прочитать из файла рецептов.</translation>
    </message>
    <message>
        <source>Group %1 has no items.</source>
        <translation>В группе %1 нет строк.</translation>
    </message>
    <message>
        <source>Group %1 has no recipe %2.</source>
        <translation>В группе %1 нет рецепта %2.</translation>
    </message>
    <message>
        <source>Recipe %1</source>
        <translation>Рецепт %1</translation>
    </message>
    <message>
        <source>Item %1</source>
        <translation>Строка %1</translation>
    </message>
    <message>
        <source>%1 has no value.</source>
        <translation>%1: нет значения.</translation>
    </message>
    <message>
        <source>The recipe file holds &quot;%1&quot; more than once.</source>
        <translation>В файле рецептов «%1» встречается несколько раз.</translation>
    </message>
    <message>
        <source>%1 has the data type %2, which is not known.</source>
        <translation>%1: тип данных %2 неизвестен.</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a number.</source>
        <translation>%1: «%2» не является числом.</translation>
    </message>
    <message>
        <source>%1: %2 has too many decimals.</source>
        <translation>%1: у %2 слишком много знаков после запятой.</translation>
    </message>
    <message>
        <source>%1: %2 does not fit into its register.</source>
        <translation>%1: %2 не помещается в регистр.</translation>
    </message>
    <message>
        <source>%1: the text &quot;%2&quot; is longer than %3 bytes.</source>
        <translation>%1: текст «%2» длиннее %3 байт.</translation>
    </message>
    <message>
        <source>%1 has no room among the registers of the recipe.</source>
        <translation>%1: нет места среди регистров рецепта.</translation>
    </message>
    <message>
        <source>Notification</source>
        <translation>Уведомление</translation>
    </message>
    <message>
        <source>%1 has no register address.</source>
        <translation>%1: нет адреса регистра.</translation>
    </message>
    <message>
        <source>%1: there is no link to &quot;%2&quot;.</source>
        <translation>%1: нет связи с «%2».</translation>
    </message>
    <message>
        <source>The link to &quot;%1&quot; is down.</source>
        <translation>Связь с «%1» прервана.</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; has no register %3 %4.</source>
        <translation>%1: у «%2» нет регистра %3 %4.</translation>
    </message>
    <message>
        <source>%1 and %2 share the register %3 %4.</source>
        <translation>%1 и %2 используют один и тот же регистр %3 %4.</translation>
    </message>
    <message>
        <source>The controller does not answer.</source>
        <translation>Контроллер не отвечает.</translation>
    </message>
    <message>
        <source>Sent to the controller: %1</source>
        <translation>Отправлено контроллеру: %1</translation>
    </message>
</context>
<context>
    <name>RegisterModel</name>
    <message>
        <source>Selected group</source>
        <translation>Выбранная группа</translation>
    </message>
    <message>
        <source>Selected recipe</source>
        <translation>Выбранный рецепт</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Название</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Тип</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Адрес</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Значение</translation>
    </message>
</context>
<context>
    <name>RegisterView</name>
    <message>
        <source>A register needs a type, such as LW.</source>
        <translation>Укажите тип регистра, например LW.</translation>
    </message>
    <message>
        <source>%1 %2 cannot be written.</source>
        <translation>Запись в %1 %2 невозможна.</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Следить</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Убрать</translation>
    </message>
</context>
<context>
    <name>TransferBox</name>
    <message>
        <source>Send to controller (F9)</source>
        <translation>Отправить контроллеру (F9)</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <translation>Связь с %1</translation>
    </message>
</context>
</TS>
