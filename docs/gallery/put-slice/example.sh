orlix slice head.tif front.tif --axis y --index 64
orlix put-slice head.tif front.tif doubled.tif --axis y --index 8
