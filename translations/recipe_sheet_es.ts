<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>save successful</source>
        <translation>Guardado correctamente</translation>
    </message>
    <message>
        <source>busy, please wait</source>
        <translation>Ocupado, espere por favor</translation>
    </message>
    <message>
        <source>tip</source>
        <translation>Aviso</translation>
    </message>
    <message>
        <source>About to autosave, whether to continue?</source>
        <translation>Se van a guardar los cambios. ¿Continuar?</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>N.º</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>error, not available</source>
        <translation>Error: no disponible</translation>
    </message>
    <message>
        <source>add success</source>
        <translation>Receta añadida</translation>
    </message>
    <message>
        <source>add error</source>
        <translation>Error al añadir</translation>
    </message>
    <message>
        <source>del success</source>
        <translation>Receta eliminada</translation>
    </message>
    <message>
        <source>del error</source>
        <translation>Error al eliminar</translation>
    </message>
</context>
</TS>
