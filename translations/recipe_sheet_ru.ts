<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>save successful</source>
        <translation>Сохранено</translation>
    </message>
    <message>
        <source>busy, please wait</source>
        <translation>Занято, подождите</translation>
    </message>
    <message>
        <source>tip</source>
        <translation>Сообщение</translation>
    </message>
    <message>
        <source>About to autosave, whether to continue?</source>
        <translation>Изменения будут сохранены. Продолжить?</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>№</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Название</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Сохр.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Новый</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Удалить</translation>
    </message>
    <message>
        <source>error, not available</source>
        <translation>Ошибка: недоступно</translation>
    </message>
    <message>
        <source>add success</source>
        <translation>Рецепт добавлен</translation>
    </message>
    <message>
        <source>add error</source>
        <translation>Ошибка при добавлении</translation>
    </message>
    <message>
        <source>del success</source>
        <translation>Рецепт удалён</translation>
    </message>
    <message>
        <source>del error</source>
        <translation>Ошибка при удалении</translation>
    </message>
</context>
</TS>
