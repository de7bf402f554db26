<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>save successful</source>
        <translation>Erfolgreich gespeichert</translation>
    </message>
    <message>
        <source>busy, please wait</source>
        <translation>Beschäftigt, bitte warten</translation>
    </message>
    <message>
        <source>tip</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>About to autosave, whether to continue?</source>
        <translation>Änderungen werden jetzt gespeichert. Fortfahren?</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>error, not available</source>
        <translation>Fehler: nicht verfügbar</translation>
    </message>
    <message>
        <source>add success</source>
        <translation>Rezept hinzugefügt</translation>
    </message>
    <message>
        <source>add error</source>
        <translation>Fehler beim Hinzufügen</translation>
    </message>
    <message>
        <source>del success</source>
        <translation>Rezept gelöscht</translation>
    </message>
    <message>
        <source>del error</source>
        <translation>Fehler beim Löschen</translation>
    </message>
</context>
</TS>
