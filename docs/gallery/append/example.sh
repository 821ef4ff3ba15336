orlix slice head.tif plan25.tif --axis z --index 25
orlix slice head.tif plan35.tif --axis z --index 35
orlix append plan25.tif plan35.tif sequence.tif
