<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>save successful</source>
        <translation>Salvataggio riuscito</translation>
    </message>
    <message>
        <source>busy, please wait</source>
        <translation>Occupato, attendere</translation>
    </message>
    <message>
        <source>tip</source>
        <translation>Avviso</translation>
    </message>
    <message>
        <source>About to autosave, whether to continue?</source>
        <translation>Le modifiche verranno salvate. Continuare?</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>N.</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nome</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Salva</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Aggiungi</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Elimina</translation>
    </message>
    <message>
        <source>error, not available</source>
        <translation>Errore: non disponibile</translation>
    </message>
    <message>
        <source>add success</source>
        <translation>Ricetta aggiunta</translation>
    </message>
    <message>
        <source>add error</source>
        <translation>Errore durante l’aggiunta</translation>
    </message>
    <message>
        <source>del success</source>
        <translation>Ricetta eliminata</translation>
    </message>
    <message>
        <source>del error</source>
        <translation>Errore durante l’eliminazione</translation>
    </message>
</context>
</TS>
