orlix slice head.tif slice.png --axis y --index 64
