<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>OnScreenKeyboard</name>
    <message>
        <source>The screen is small: keys are only %1 mm.</source>
        <translation>Pantalla pequeña: teclas de solo %1 mm.</translation>
    </message>
    <message>
        <source>Enter a number.</source>
        <translation>Introduzca un número.</translation>
    </message>
    <message>
        <source>This is not a number.</source>
        <translation>No es un número.</translation>
    </message>
    <message>
        <source>Only whole numbers are possible.</source>
        <translation>Solo se admiten números enteros.</translation>
    </message>
    <message>
        <source>Digits after the point: %1 at most.</source>
        <translation>Decimales: %1 como máximo.</translation>
    </message>
    <message>
        <source>Too many digits.</source>
        <translation>Demasiadas cifras.</translation>
    </message>
    <message>
        <source>Too small: the smallest value is %1.</source>
        <translation>Demasiado pequeño: el mínimo es %1.</translation>
    </message>
    <message>
        <source>Too large: the largest value is %1.</source>
        <translation>Demasiado grande: el máximo es %1.</translation>
    </message>
    <message>
        <source>Too long: the greatest length is %1.</source>
        <translation>Demasiado largo: máximo %1 caracteres.</translation>
    </message>
    <message>
        <source>No value is possible: the limits are %1 to %2.</source>
        <translation>Ningún valor es posible: los límites son %1 a %2.</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texto</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valor</translation>
    </message>
    <message>
        <source>Old: %1</source>
        <translation>Anterior: %1</translation>
    </message>
    <message>
        <source>Length: up to %1</source>
        <translation>Longitud: hasta %1</translation>
    </message>
    <message>
        <source>Min: %1</source>
        <translation>Mín: %1</translation>
    </message>
    <message>
        <source>Max: %1</source>
        <translation>Máx: %1</translation>
    </message>
    <message>
        <source>CLR</source>
        <comment>key that clears the whole entry, three letters</comment>
        <translation>CLR</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>&amp;Yes</source>
        <translation>Sí</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>RegisterModel</name>
    <message>
        <source>Selected group</source>
        <translation>Grupo seleccionado</translation>
    </message>
    <message>
        <source>Selected recipe</source>
        <translation>Receta seleccionada</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Dirección</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valor</translation>
    </message>
</context>
<context>
    <name>RegisterView</name>
    <message>
        <source>A register needs a type, such as LW.</source>
        <translation>Un registro necesita un tipo, por ejemplo LW.</translation>
    </message>
    <message>
        <source>%1 %2 cannot be written.</source>
        <translation>No se puede escribir en %1 %2.</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Observar</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
</context>
</TS>
