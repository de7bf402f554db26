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
</TS>
